#include "program/console.h"

#include <algorithm>
#include <cstdio>

namespace zel {
namespace {

void print_error(std::string_view raw) {
    const std::string text = printable(raw);
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fputc('\n', stderr);
}

}  // namespace

std::string paragraph_of(const Box& box) {
    std::string text = without_outer_blanks(box.title);
    for (const std::string& line : box.lines) text += "\n  " + without_outer_blanks(line);
    if (box.buttons == Buttons::YesNo)
        text += box.unattended == Answer::Yes ? "\n  -> yes" : "\n  -> no";
    return text;
}

Answer Console::show(const Box& box) {
    show(box, {});
    return box.unattended;
}

void Console::show(const Box& box, std::string_view field) {
    messages_.push_back({box, std::string(field)});
    if (options_.json) return;
    const std::string head = field.empty() ? std::string() : std::string(field) + ": ";
    print_error(head + paragraph_of(box));
}

void Console::tell_reason(std::string_view reason) { print_error("zel: " + std::string(reason)); }

bool print(std::string_view text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return std::fflush(stdout) == 0 && written;
}

int print_or_fail(std::string_view document, int status) {
    if (print(document)) return status;
    Console::tell_reason("standard output cannot be written");
    return std::max<int>(status, exit_failed);
}

}  // namespace zel
