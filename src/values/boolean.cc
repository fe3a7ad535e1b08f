// Truth: "true" and "false", their text forms, and the aggregates over them.
#include <algorithm>
#include <optional>

#include "evaluator/adapters.h"
#include "foundation/ascii.h"
#include "values/integer.h"

namespace {

boolean True() { return true; }
boolean False() { return false; }

bool EqualIgnoringCase(const inspector_string& text, std::string_view word) {
    return Ascii::CompareIgnoringCase(text.Data(), ConstData(word)) == 0;
}

// "true" or "false" in any case, and nothing else.
std::optional<boolean> boolean_of(const inspector_string& text) {
    if (EqualIgnoringCase(text, "true")) {
        return true;
    }
    if (EqualIgnoringCase(text, "false")) {
        return false;
    }
    return std::nullopt;
}

inspector_string asString(const boolean& value) { return inspector_string(value ? "True" : "False"); }

boolean Identity(const boolean& value) { return value; }

// The first element that differs from the identity decides; later ones change nothing.
template <boolean Identity>
class boolean_aggregate {
public:
    void Initialize() { result_ = Identity; }
    void Aggregate(Of, const boolean& value) {
        if (result_ == Identity) {
            result_ = value;
        }
    }
    boolean FirstFinal() const { return result_; }

private:
    boolean result_ = Identity;
};

// clang-format off
Type<boolean>                                                       type;

GlobalProperty<boolean, True>                                       trueProperty   {"true", "trues"};
GlobalProperty<boolean, False>                                      falseProperty  {"false", "falses"};
NamedGlobalProperty<boolean, boolean_of>                            ofString       {"boolean", "booleans"};
AggregatingProperty<boolean_aggregate<true>, boolean, boolean>      conjunction    {"conjunction", "conjunctions"};
AggregatingProperty<boolean_aggregate<false>, boolean, boolean>     disjunction    {"disjunction", "disjunctions"};

Cast<boolean, inspector_string, boolean_of>                         fromString     {"boolean"};
Cast<inspector_string, boolean, asString>                           toString       {"string"};
Cast<boolean, boolean, Identity>                                    toBoolean      {"boolean"};

RelationEqual<boolean>                                              equal;
// clang-format on

}  // namespace
