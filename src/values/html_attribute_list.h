// Attributes of an element, ready to be written into its opening tag.
#ifndef VALUES_HTML_ATTRIBUTE_LIST_H
#define VALUES_HTML_ATTRIBUTE_LIST_H

#include "registry/inspector_type_info.h"

// `name="value"` for each attribute, a blank between them, the values escaped.
struct html_attribute_list {
    inspector_string text;

    ConstData FingerprintData() const { return text.Data(); }
};

template <>
struct InspectorTypeInfo<html_attribute_list> : InspectorTypeBasics<html_attribute_list> {
    static constexpr char Name[] = "html attribute list";
    static constexpr unsigned Size = 8;
};

#endif
