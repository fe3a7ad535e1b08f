#include "client/inspector_library_list.h"

#include "foundation/extensible_array.h"

namespace InspectorLibraryList {

namespace {

ExtensibleArray<InspectorLibrary>& List() {
    static ExtensibleArray<InspectorLibrary> list;
    return list;
}

}  // namespace

void Add(unsigned number, std::string_view name) { List().Append(InspectorLibrary{number, name}); }

const InspectorLibrary* SFind(std::string_view name) {
    for (size_t i = 0; i != List().Size(); ++i) {
        if (List()[i].name == name) {
            return &List()[i];
        }
    }
    return nullptr;
}

const InspectorLibrary* SFindByNumber(unsigned place) { return place < List().Size() ? &List()[place] : nullptr; }

}  // namespace InspectorLibraryList
