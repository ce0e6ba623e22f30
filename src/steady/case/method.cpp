#include "steady/case/method.h"

namespace zel {
namespace {

struct MethodRow {
    std::string_view key;
    std::string_view name;
    std::int16_t CalcCase::*flag;
};

// By the number of the method.
constexpr MethodRow rows[] = {
    {"TB601", "Cigre TB 601", &CalcCase::rechnung_cigre601_merker_db},
    {"TB207", "Cigre TB 207", &CalcCase::rechnung_cigre207_merker_db},
    {"TBB", "Puffer", &CalcCase::rechnung_TBB_merker_db},
    {"Webs", "Webs", &CalcCase::rechnung_webs_merker_db},
    {"Kirn", "Kirn", &CalcCase::rechnung_kirn_merker_db},
};

const MethodRow& row_of(Method method) { return rows[static_cast<std::size_t>(method)]; }

}  // namespace

std::string_view key_of(Method method) { return row_of(method).key; }

std::string_view name_of(Method method) { return row_of(method).name; }

std::int16_t CalcCase::*flag_of(Method method) { return row_of(method).flag; }

}  // namespace zel
