// Content items (praxels) and headers, as the language has them.
#ifndef CLIENT_PRAXEL_H
#define CLIENT_PRAXEL_H

#include <optional>

#include "evaluator/adapters.h"
#include "evaluator/inspector_praxel_context.h"
#include "foundation/ascii.h"
#include "registry/inspector_type_info.h"

// A content item by its record, which is the host's.
class praxel {
public:
    explicit praxel(const PraxelRecord& record) : record_(&record) {}

    const PraxelRecord& Record() const { return *record_; }

private:
    const PraxelRecord* record_;
};

template <>
struct InspectorTypeInfo<praxel> : InspectorTypeBasics<praxel, 0> {
    static constexpr char Name[] = "praxel";
    static constexpr unsigned Size = sizeof(praxel);
};

// A header of a content item or of an action; the texts are the host's.
struct praxel_header {
    inspector_string name;
    inspector_string value;
};

template <>
struct InspectorTypeInfo<praxel_header> : InspectorTypeBasics<praxel_header, 0> {
    static constexpr char Name[] = "praxel_header";
    static constexpr unsigned Size = 2 * InspectorTypeInfo<inspector_string>::Size;
};

// The headers of an object, one at a time; those of one name without regard to ASCII case.  `NextHeader` gives the next
// of an object's headers by a cursor: bool(const Object&, size_t& cursor, PraxelHeader&), false at the end.
template <class Object, auto NextHeader>
class praxel_header_iterator {
public:
    std::optional<praxel_header> First(const Object& object) {
        cursor_ = 0;
        return Next(object);
    }
    std::optional<praxel_header> Next(const Object& object) {
        PraxelHeader header;
        return NextHeader(object, cursor_, header) ? Made(header) : std::nullopt;
    }

    std::optional<praxel_header> FirstNamed(const inspector_string& name, Of, const Object& object) {
        cursor_ = 0;
        return NextNamed(name, Of(), object);
    }
    std::optional<praxel_header> NextNamed(const inspector_string& name, Of, const Object& object) {
        PraxelHeader header;
        while (NextHeader(object, cursor_, header)) {
            if (Ascii::CompareIgnoringCase(ConstData(header.name), name.Data()) == 0) {
                return Made(header);
            }
        }
        return std::nullopt;
    }

private:
    static std::optional<praxel_header> Made(const PraxelHeader& header) {
        return praxel_header{inspector_string(header.name), inspector_string(header.value)};
    }

    size_t cursor_ = 0;
};

#endif
