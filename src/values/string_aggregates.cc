// The aggregates over strings: concatenations and unique values.
#include <map>
#include <optional>
#include <string>

#include "evaluator/adapters.h"
#include "values/aggregates.h"

namespace {

using String = inspector_string;

// The result's bytes are this object's and live as long as the evaluation.
class string_concatenation {
public:
    void Initialize() {
        bytes_.clear();
        begun_ = false;
    }
    void Aggregate(Of, const String& text) { bytes_.append(text.View()); }
    void Aggregate(const String& delimiter, Of, const String& text) {
        if (begun_) {
            bytes_.append(delimiter.View());
        }
        begun_ = true;
        bytes_.append(text.View());
    }
    String FirstFinal() const { return String(bytes_); }

private:
    std::string bytes_;
    bool begun_ = false;
};

// The strings in the order of their bytes, each once, with their counts.  The memory of an element is gone when the
// next one comes, so a copy of each is kept; a string that has been seen is only counted.
class unique_strings {
public:
    void Initialize() { counts_.clear(); }
    void Aggregate(Of, const String& text) {
        auto entry = counts_.lower_bound(text.View());
        if (entry == counts_.end() || entry->first != text.View()) {
            entry = counts_.emplace_hint(entry, text.View(), 0);
        }
        ++entry->second;
    }
    std::optional<with_multiplicity<String>> FirstFinal() {
        cursor_ = counts_.begin();
        return NextFinal();
    }
    std::optional<with_multiplicity<String>> NextFinal() {
        if (cursor_ == counts_.end()) {
            return std::nullopt;
        }
        const auto entry = cursor_++;
        return with_multiplicity<String>(String(entry->first), entry->second);
    }

private:
    using Map = std::map<std::string, int64_t, std::less<>>;
    Map counts_;
    Map::iterator cursor_;
};

// clang-format off
AggregatingProperty<string_concatenation, String, String>                   concatenation           {"concatenation", "concatenations"};
AggregatingPropertyByIndex<string_concatenation, String, String, String>    delimitedConcatenation  {"concatenation", "concatenations"};
UniqueValuesInspectorRegistration<String, unique_strings>                   uniqueValues;
// clang-format on

}  // namespace
