#include "adapters/openssl/sha256.h"

#include <openssl/evp.h>

#include <array>
#include <stdexcept>

namespace zel {
namespace {

void require(int done) {
    if (done != 1) throw std::runtime_error("SHA-256 is not available");
}

}  // namespace

struct Sha256::Context {
    EVP_MD_CTX* context = EVP_MD_CTX_new();

    Context() = default;
    ~Context() { EVP_MD_CTX_free(context); }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
};

Sha256::Sha256() : context_(std::make_unique<Context>()) {
    require(EVP_DigestInit_ex(context_->context, EVP_sha256(), nullptr));
}

Sha256::~Sha256() = default;

void Sha256::take(std::string_view bytes) {
    require(EVP_DigestUpdate(context_->context, bytes.data(), bytes.size()));
}

std::string Sha256::hex() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned size = 0;
    require(EVP_DigestFinal_ex(context_->context, digest.data(), &size));
    std::string text;
    for (unsigned i = 0; i < size; ++i) {
        constexpr char digits[] = "0123456789abcdef";
        text += digits[digest[i] >> 4U];
        text += digits[digest[i] & 15U];
    }
    return text;
}

}  // namespace zel
