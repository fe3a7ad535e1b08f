// The values that look into a package cache, and the walks that give them.
//
// A value holds its cache and an iterator of its own, so that it may outlive the question's part that made it.  A value
// whose iterator is at its end has no properties: each throws NoSuchObject.
#ifndef INSPECTORS_DEBIAN_PACKAGE_H
#define INSPECTORS_DEBIAN_PACKAGE_H

#include <memory>
#include <string_view>
#include <utility>

#include "evaluator/adapters.h"
#include "inspectors/debian_package_database.h"

using PkgIterator = wrp_pkgCache::wrp_PkgIterator;
using VerIterator = wrp_pkgCache::wrp_VerIterator;
using DepIterator = wrp_pkgCache::wrp_DepIterator;
using VerFileIterator = wrp_pkgCache::wrp_VerFileIterator;

// One place in a cache.
template <class Iterator>
class DebianInspectorResultBase {
public:
    DebianInspectorResultBase(DebianPackageDatabaseReference database, std::unique_ptr<Iterator> iterator)
        : database_(std::move(database)), iterator_(std::move(iterator)) {}
    DebianInspectorResultBase(const DebianInspectorResultBase& other)
        : database_(other.database_), iterator_(other.iterator_->clone()) {}
    DebianInspectorResultBase(DebianInspectorResultBase&&) noexcept = default;
    DebianInspectorResultBase& operator=(const DebianInspectorResultBase&) = delete;

    const DebianPackageDatabaseReference& Database() const { return database_; }

    // Throws NoSuchObject at the end.
    Iterator& At() const {
        if (iterator_->end()) {
            NoResults();
        }
        return *iterator_;
    }

private:
    DebianPackageDatabaseReference database_;  // The iterator goes before its cache may.
    std::unique_ptr<Iterator> iterator_;
};

class debianpackagecache {
public:
    explicit debianpackagecache(DebianPackageDatabaseReference database) : database_(std::move(database)) {}

    const DebianPackageDatabaseReference& Database() const { return database_; }

private:
    DebianPackageDatabaseReference database_;
};

struct debian_base_package : DebianInspectorResultBase<PkgIterator> {
    using DebianInspectorResultBase::DebianInspectorResultBase;
};
struct debian_versioned_package : DebianInspectorResultBase<VerIterator> {
    using DebianInspectorResultBase::DebianInspectorResultBase;
};
struct debianpkg_version : DebianInspectorResultBase<VerIterator> {
    using DebianInspectorResultBase::DebianInspectorResultBase;
};
struct debianpkg_verfile : DebianInspectorResultBase<VerFileIterator> {
    using DebianInspectorResultBase::DebianInspectorResultBase;
};
struct debianpkg_dependency : DebianInspectorResultBase<DepIterator> {
    using DebianInspectorResultBase::DebianInspectorResultBase;
};
struct debianpkg_reverse_dependencies : DebianInspectorResultBase<DepIterator> {
    using DebianInspectorResultBase::DebianInspectorResultBase;
};

// A value depends on what its cache held: it is judged by having it.
template <class T>
struct DebianPackageTypeBasics : InspectorTypeBasics<T, 0> {
    static constexpr unsigned Size = 8;
};

template <>
struct InspectorTypeInfo<debianpackagecache> : InspectorTypeBasics<debianpackagecache, 0> {
    static constexpr char Name[] = "debianpackagecache";
    static constexpr unsigned Size = 4;
};
template <>
struct InspectorTypeInfo<debian_base_package> : DebianPackageTypeBasics<debian_base_package> {
    static constexpr char Name[] = "debian base package";
};
template <>
struct InspectorTypeInfo<debian_versioned_package> : DebianPackageTypeBasics<debian_versioned_package> {
    static constexpr char Name[] = "debian versioned package";
};
template <>
struct InspectorTypeInfo<debianpkg_version> : DebianPackageTypeBasics<debianpkg_version> {
    static constexpr char Name[] = "debianpkg version";
};
template <>
struct InspectorTypeInfo<debianpkg_verfile> : DebianPackageTypeBasics<debianpkg_verfile> {
    static constexpr char Name[] = "debianpkg verfile";
};
template <>
struct InspectorTypeInfo<debianpkg_dependency> : DebianPackageTypeBasics<debianpkg_dependency> {
    static constexpr char Name[] = "debianpkg dependency";
};
template <>
struct InspectorTypeInfo<debianpkg_reverse_dependencies> : DebianPackageTypeBasics<debianpkg_reverse_dependencies> {
    static constexpr char Name[] = "debianpkg reverse dependencies";
};

// The outer level of a walk that has none: it is at its end from the start.
class ImitationAPIIterator {
public:
    bool end() const { return true; }
    void next() {}
    const char* Name() const { return ""; }
};

// Never called, since no outer iterator of this kind is ever on a value.
template <class Inner>
std::unique_ptr<Inner> fnBogusGetInnerIterator(const ImitationAPIIterator&) {
    return nullptr;
}

std::unique_ptr<VerIterator> GetInnerVersionOfPackageIterator(const PkgIterator& package);

// A walk of one level, over the inner iterator, or of two, over the inner iterators of each outer one in turn.  It
// gives a Holder for each inner value.
template <class Holder, class Inner, class Outer, std::unique_ptr<Inner> (*GetInner)(const Outer&)>
class DebianIteratorWrapperBase {
public:
    // Begins a walk at what `inner` is on.
    void Begin(DebianPackageDatabaseReference database, std::unique_ptr<Inner> inner) {
        inner_ = std::move(inner);
        outer_.reset();
        database_ = std::move(database);
    }

    // Begins a walk over the inner iterators of all that come from `outer`, which follows `empty`.
    void Begin(DebianPackageDatabaseReference database, std::unique_ptr<Inner> empty, std::unique_ptr<Outer> outer,
               std::string_view name, bool anyName) {
        Begin(std::move(database), std::move(empty));
        outer_ = std::move(outer);
        EnterOuter(name, anyName);
    }

    bool End() const { return inner_->end(); }
    const Inner& Current() const { return *inner_; }
    Holder Value() const { return Holder(database_, std::unique_ptr<Inner>(inner_->clone())); }

    // The outer level moves on when the inner one ends, to the next that is to be entered: one of the name, or any.
    void Step(std::string_view name = {}, bool anyName = true) {
        inner_->next();
        if (inner_->end() && outer_ != nullptr) {
            outer_->next();
            EnterOuter(name, anyName);
        }
    }

private:
    void EnterOuter(std::string_view name, bool anyName) {
        for (; !outer_->end(); outer_->next()) {
            if (anyName || name == outer_->Name()) {
                inner_ = GetInner(*outer_);
                if (!inner_->end()) {
                    return;
                }
            }
        }
    }

    DebianPackageDatabaseReference database_;  // The iterators go before their cache may.
    std::unique_ptr<Outer> outer_;
    std::unique_ptr<Inner> inner_;
};

using DebianBasePackageIteratorWrapper =
    DebianIteratorWrapperBase<debian_base_package, PkgIterator, ImitationAPIIterator,
                              fnBogusGetInnerIterator<PkgIterator>>;
using DebianVersionedPackageIteratorWrapper =
    DebianIteratorWrapperBase<debian_versioned_package, VerIterator, PkgIterator, GetInnerVersionOfPackageIterator>;
using DebianPkgVersionIteratorWrapper = DebianIteratorWrapperBase<debianpkg_version, VerIterator, ImitationAPIIterator,
                                                                  fnBogusGetInnerIterator<VerIterator>>;
using DebianVerFileIteratorWrapper = DebianIteratorWrapperBase<debianpkg_verfile, VerFileIterator, ImitationAPIIterator,
                                                               fnBogusGetInnerIterator<VerFileIterator>>;
using DebianPkgDependsIteratorWrapper =
    DebianIteratorWrapperBase<debianpkg_dependency, DepIterator, ImitationAPIIterator,
                              fnBogusGetInnerIterator<DepIterator>>;
using DebianPkgRevDependsIteratorWrapper =
    DebianIteratorWrapperBase<debianpkg_reverse_dependencies, DepIterator, ImitationAPIIterator,
                              fnBogusGetInnerIterator<DepIterator>>;

#endif
