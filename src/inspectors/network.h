// The values of the network: each holds the list that it was taken from.
#ifndef INSPECTORS_NETWORK_H
#define INSPECTORS_NETWORK_H

#include <memory>
#include <utility>

#include "inspectors/interface_list.h"
#include "registry/inspector_type_info.h"

class network {
public:
    explicit network(std::shared_ptr<const InterfaceList> list) : list_(std::move(list)) {}
    const std::shared_ptr<const InterfaceList>& List() const { return list_; }

private:
    std::shared_ptr<const InterfaceList> list_;
};

// One entry of the list, whichever of the two it was asked of.
class ip_interface_of_adapter_or_network {
public:
    ip_interface_of_adapter_or_network(std::shared_ptr<const InterfaceList> list, const ifaddrs* entry)
        : list_(std::move(list)), entry_(entry) {}
    const std::shared_ptr<const InterfaceList>& List() const { return list_; }
    const ifaddrs& Entry() const { return *entry_; }

private:
    std::shared_ptr<const InterfaceList> list_;
    const ifaddrs* entry_;
};

class network_interface : public ip_interface_of_adapter_or_network {
    using ip_interface_of_adapter_or_network::ip_interface_of_adapter_or_network;
};

// One entry of an adapter.
class network_adapter_interface : public ip_interface_of_adapter_or_network {
    using ip_interface_of_adapter_or_network::ip_interface_of_adapter_or_network;
};

class network_adapter {
public:
    network_adapter(std::shared_ptr<const InterfaceList> list, const InterfaceAdapter* adapter)
        : list_(std::move(list)), adapter_(adapter) {}
    const std::shared_ptr<const InterfaceList>& List() const { return list_; }
    const InterfaceAdapter& Adapter() const { return *adapter_; }

private:
    std::shared_ptr<const InterfaceList> list_;
    const InterfaceAdapter* adapter_;
};

template <>
struct InspectorTypeInfo<network> : InspectorTypeBasics<network, 0> {
    static constexpr char Name[] = "network";
    static constexpr unsigned Size = sizeof(network);
};

template <>
struct InspectorTypeInfo<network_interface> : InspectorTypeBasics<network_interface, 0> {
    static constexpr char Name[] = "network interface";
    static constexpr unsigned Size = sizeof(network_interface);
};

template <>
struct InspectorTypeInfo<network_adapter_interface> : InspectorTypeBasics<network_adapter_interface, 0> {
    static constexpr char Name[] = "network adapter interface";
    static constexpr unsigned Size = sizeof(network_adapter_interface);
};

template <>
struct InspectorTypeInfo<network_adapter> : InspectorTypeBasics<network_adapter, 0> {
    static constexpr char Name[] = "network adapter";
    static constexpr unsigned Size = sizeof(network_adapter);
};

#endif
