#pragma once

#include "shell/session.h"

namespace zel::excel_batch {

/// What the methods of a row need of the program: they are silent, and each row has its own.
class SilentSession {
public:
    /// `memory` null: each method starts from nothing.
    explicit SilentSession(const Session& of_batch, MethodMemory* memory = nullptr)
        : session_{of_batch.lang, DecimalSeparator::Comma, RunMode::Silent, dialogs_,
                   memory,        of_batch.wi_v_wi_merker} {}
    SilentSession(const SilentSession&) = delete;
    SilentSession& operator=(const SilentSession&) = delete;

    [[nodiscard]] const Session& session() const { return session_; }

private:
    class NoDialogs : public Dialogs {
    public:
        Answer show(const Box& box) override { return box.unattended; }
    };

    NoDialogs dialogs_;
    Session session_;
};

}  // namespace zel::excel_batch
