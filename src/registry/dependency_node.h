// Dependency nodes: the few things in the world that many results depend on, each with a number of its own.
//
// A node is a static object beside the inspector that it serves.  All nodes stand in one list that is sorted by name
// before any use; a node's number is its place there, so that numbers are the same in every run of one build, in
// whatever order the units were initialised.  The list is made at static initialisation and sorted before a second
// thread can use it; nothing guards it.
#ifndef REGISTRY_DEPENDENCY_NODE_H
#define REGISTRY_DEPENDENCY_NODE_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "foundation/debuggable_exception.h"
#include "registry/fingerprinter.h"

struct GlobalDependencyRegistrationBlockTooSmall : DebuggableException {
    GlobalDependencyRegistrationBlockTooSmall() noexcept
        : DebuggableException("GlobalDependencyRegistrationBlockTooSmall") {}
};

class DependencyNode {
public:
    // `name` must outlive the node; `state` feeds the present state of what the node stands for.
    DependencyNode(std::string_view name, DependencyFunction state);
    DependencyNode(const DependencyNode&) = delete;
    DependencyNode& operator=(const DependencyNode&) = delete;
    ~DependencyNode();

    std::string_view Name() const { return name_; }

    // The node's place among all nodes in the byte order of their names.
    unsigned Number();

    void AddState(Fingerprinter& fingerprinter) const { state_(fingerprinter); }

private:
    friend struct GlobalDependency;

    std::string_view name_;
    unsigned number_ = 0;
    DependencyFunction state_;
};

// The list of all nodes.
struct GlobalDependency {
    static bool dependenciesAreSorted;
    static bool dependencyNumbersAreCorrect;

    // The node with this number, null where there is none.
    static DependencyNode* Node(unsigned number);
    static size_t Count();

private:
    friend class DependencyNode;
    static std::vector<DependencyNode*>& Nodes();
    static void Order();
};

// Places a dependency node in a block of static storage; a block smaller than the record is a build mistake and throws
// GlobalDependencyRegistrationBlockTooSmall.
DependencyNode& RegisterGlobalDependency(void* block, size_t size, std::string_view name, DependencyFunction state);

// The dependency function that stands for one node.
template <DependencyNode& Node>
void DependsOn(Fingerprinter& fingerprinter) {
    fingerprinter.AddDependency(Node);
}

#endif
