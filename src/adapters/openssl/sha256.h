#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace zel {

/// The SHA-256 of bytes that come piece by piece.
class Sha256 {
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void take(std::string_view bytes);
    /// Of all bytes taken, in 64 small hexadecimal digits. Nothing can be taken after it.
    [[nodiscard]] std::string hex();

private:
    struct Context;
    std::unique_ptr<Context> context_;
};

}  // namespace zel
