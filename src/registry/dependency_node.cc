#include "registry/dependency_node.h"

#include <algorithm>
#include <new>

bool GlobalDependency::dependenciesAreSorted = false;
bool GlobalDependency::dependencyNumbersAreCorrect = false;

std::vector<DependencyNode*>& GlobalDependency::Nodes() {
    static std::vector<DependencyNode*> nodes = [] {
        std::vector<DependencyNode*> list;
        list.reserve(31);
        return list;
    }();
    return nodes;
}

void GlobalDependency::Order() {
    std::vector<DependencyNode*>& nodes = Nodes();
    if (!dependenciesAreSorted) {
        std::stable_sort(nodes.begin(), nodes.end(),
                         [](const DependencyNode* a, const DependencyNode* b) { return a->name_ < b->name_; });
        dependenciesAreSorted = true;
    }
    if (!dependencyNumbersAreCorrect) {
        for (size_t i = 0; i < nodes.size(); ++i) {
            nodes[i]->number_ = static_cast<unsigned>(i);
        }
        dependencyNumbersAreCorrect = true;
    }
}

DependencyNode* GlobalDependency::Node(unsigned number) {
    Order();
    return number < Nodes().size() ? Nodes()[number] : nullptr;
}

size_t GlobalDependency::Count() { return Nodes().size(); }

DependencyNode::DependencyNode(std::string_view name, DependencyFunction state) : name_(name), state_(state) {
    GlobalDependency::Nodes().push_back(this);
    GlobalDependency::dependenciesAreSorted = false;
    GlobalDependency::dependencyNumbersAreCorrect = false;
}

DependencyNode::~DependencyNode() {
    std::erase(GlobalDependency::Nodes(), this);
    GlobalDependency::dependenciesAreSorted = false;
    GlobalDependency::dependencyNumbersAreCorrect = false;
}

unsigned DependencyNode::Number() {
    GlobalDependency::Order();
    return number_;
}

DependencyNode& RegisterGlobalDependency(void* block, size_t size, std::string_view name, DependencyFunction state) {
    if (size < sizeof(DependencyNode)) {
        throw GlobalDependencyRegistrationBlockTooSmall();
    }
    return *new (block) DependencyNode(name, state);
}
