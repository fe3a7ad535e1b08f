#include "values/html_attribute_list.h"

#include <string>

#include "evaluator/adapters.h"
#include "values/html.h"

namespace {

using String = inspector_string;
using Pair = InspectorTuple2<String, String>;

// The list's bytes are this object's and live as long as the evaluation.
class html_attribute_list_maker {
public:
    void Initialize() { bytes_.clear(); }
    // The pair is the attribute's name, which stands as it is written, and its value.
    void Aggregate(Of, const Pair& attribute) {
        if (!bytes_.empty()) {
            bytes_ += ' ';
        }
        bytes_ += TupleElement<String>(&attribute, 0).View();
        bytes_ += "=\"";
        AppendEscaped(TupleElement<String>(&attribute, 1).View(), bytes_);
        bytes_ += '"';
    }
    html_attribute_list FirstFinal() const { return {String(bytes_)}; }

private:
    std::string bytes_;
};

// clang-format off
Type<html_attribute_list>                                                   type;

AggregatingProperty<html_attribute_list_maker, Pair, html_attribute_list>   ofPairs {"attr list", "attr lists"};
// clang-format on

}  // namespace
