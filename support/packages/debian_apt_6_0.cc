// The package support library for apt's generation 6.0: the wrappers over the machine's own libapt-pkg.
//
// The cache is what apt's own tools see: apt's configuration decides where it lies and what is in it.  It is opened
// without a lock, and taken from apt's file where that is up to date; otherwise apt makes it anew, in memory, or, for
// those who may write apt's file, in that file.
#include <apt-pkg/cachefile.h>
#include <apt-pkg/configuration.h>
#include <apt-pkg/debversion.h>
#include <apt-pkg/error.h>
#include <apt-pkg/init.h>
#include <apt-pkg/pkgcache.h>
#include <apt-pkg/pkgsystem.h>

#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>

#include "support/packages/debian_wrappers.h"

namespace {

// What the wrapped iterators share.  Base is the declared class, Itr apt's iterator.
template <class Base, class Derived, class Itr>
class Wrapped : public Base {
public:
    explicit Wrapped(const Itr& iterator) : it_(iterator) {}

    Base* clone() const override { return new Derived(it_); }
    bool end() const override { return it_.end(); }
    void next() override { ++it_; }

protected:
    Itr it_;
};

using PkgBase = wrp_pkgCache::wrp_PkgIterator;
using VerBase = wrp_pkgCache::wrp_VerIterator;
using DepBase = wrp_pkgCache::wrp_DepIterator;
using VerFileBase = wrp_pkgCache::wrp_VerFileIterator;

class VerFile : public Wrapped<VerFileBase, VerFile, pkgCache::VerFileIterator> {
public:
    using Wrapped::Wrapped;

    const char* FileName() const override { return it_.File().FileName(); }
};

// In apt's words, which apt itself would translate.
constexpr const char* kDepTypes[] = {"",          "Depends",  "PreDepends", "Suggests", "Recommends",
                                     "Conflicts", "Replaces", "Obsoletes",  "Breaks",   "Enhances"};

class Dep : public Wrapped<DepBase, Dep, pkgCache::DepIterator> {
public:
    explicit Dep(const pkgCache::DepIterator& iterator) : Wrapped(iterator) { SkipImplicit(); }

    void next() override {
        Wrapped::next();
        SkipImplicit();
    }

    const char* DepType() const override {
        const size_t type = it_->Type;
        return type < std::size(kDepTypes) ? kDepTypes[type] : "";
    }
    const char* CompType() const override { return pkgCache::CompTypeDeb(it_->CompareOp); }
    const char* TargetVer() const override { return it_.TargetVer(); }
    const char* TargetPkgName() const override { return it_.TargetPkg().Name(); }
    bool IsCritical() const override { return it_.IsCritical(); }
    const char* ParentPkgName() const override { return it_.ParentPkg().Name(); }
    const char* ParentVerStr() const override { return it_.ParentVer().VerStr(); }

private:
    void SkipImplicit() {
        while (!it_.end() && it_.IsImplicit()) {
            ++it_;
        }
    }
};

class Pkg;

class Ver : public Wrapped<VerBase, Ver, pkgCache::VerIterator> {
public:
    using Wrapped::Wrapped;

    const char* VerStr() const override { return it_.VerStr(); }
    const char* Section() const override { return it_.Section(); }
    const char* Arch() const override { return it_.Arch(); }
    const char* PkgName() const override { return it_.ParentPkg().Name(); }
    bool IsCurrent() const override {
        const auto current = it_.ParentPkg().CurrentVer();
        return !current.end() && current->ID == it_->ID;
    }
    const char* RelStr() override {
        release_ = it_.RelStr();
        return release_.c_str();
    }

    PkgBase* ParentPkg() const override;
    VerFileBase* FileList() const override { return new VerFile(it_.FileList()); }
    DepBase* DependsList() const override { return new Dep(it_.DependsList()); }
    DepBase* RevDependsList() const override { return new Dep(it_.ParentPkg().RevDependsList()); }

private:
    std::string release_;
};

class Pkg : public Wrapped<PkgBase, Pkg, pkgCache::PkgIterator> {
public:
    using Wrapped::Wrapped;

    const char* Name() const override { return it_.Name(); }
    bool HasCurrentVer() const override { return it_->CurrentVer != 0; }
    VerBase* CurrentVer() const override { return new Ver(it_.CurrentVer()); }
    VerBase* VersionList() const override { return new Ver(it_.VersionList()); }
};

PkgBase* Ver::ParentPkg() const { return new Pkg(it_.ParentPkg()); }

// A scope with apt's list of errors to itself; what gathers in it is gone at its end.
class OwnErrors {
public:
    OwnErrors() { _error->PushToStack(); }
    OwnErrors(const OwnErrors&) = delete;
    OwnErrors& operator=(const OwnErrors&) = delete;
    ~OwnErrors() { _error->RevertToStack(); }

    [[noreturn]] void Throw() {
        std::string text = "apt's package cache can't be opened";
        std::string message;
        while (!_error->empty(GlobalError::ERROR)) {
            if (_error->PopMessage(message)) {
                text += ": " + message;
            }
        }
        throw std::runtime_error(text);
    }
};

void Initialize(OwnErrors& errors) {
    static bool initialized = false;
    if (!initialized) {
        if (!pkgInitConfig(*_config) || !pkgInitSystem(*_config, _system)) {
            errors.Throw();
        }
        initialized = true;
    }
}

class Cache final : public wrp_pkgCache {
public:
    Cache() {
        OwnErrors errors;
        Initialize(errors);
        if (!file_.BuildCaches(nullptr, false) || file_.GetPkgCache() == nullptr) {
            errors.Throw();
        }
    }

    PkgBase* PkgBegin() const override { return new Pkg(static_cast<pkgCache&>(file_).PkgBegin()); }

private:
    mutable pkgCacheFile file_;
};

// A part of a version has no parts of its own: its dashes and colons are bytes like others.
class VersioningSystem final : public wrp_pkgVersioningSystem {
public:
    int CmpVersion(const char* a, const char* b) const override { return debVS.CmpVersion(a, b); }
    int CmpPart(const char* a, const char* aEnd, const char* b, const char* bEnd) const override {
        return debVersioningSystem::CmpFragment(a, aEnd, b, bEnd);
    }
};

class EmptyIteratorMakers final : public wrp_EmptyIteratorMakers {
public:
    PkgBase* MakePkgIterator() const override { return new Pkg(pkgCache::PkgIterator()); }
    VerBase* MakeVerIterator() const override { return new Ver(pkgCache::VerIterator()); }
    DepBase* MakeDepIterator() const override { return new Dep(pkgCache::DepIterator()); }
    VerFileBase* MakeVerFileIterator() const override { return new VerFile(pkgCache::VerFileIterator()); }
};

}  // namespace

extern "C" {

[[gnu::visibility("default")]] CacheCreator CacheCreator_deb_6_0;
[[gnu::visibility("default")]] CacheDestroyer CacheDestroyer_deb_6_0;
[[gnu::visibility("default")]] VersioningSystemGetter GetVersioningSystem_deb_6_0;
[[gnu::visibility("default")]] EmptyIteratorMakersGetter GetEmptyIteratorMakers_deb_6_0;

wrp_pkgCache* CacheCreator_deb_6_0() { return new Cache; }

void CacheDestroyer_deb_6_0(wrp_pkgCache* cache) { delete cache; }

const wrp_pkgVersioningSystem* GetVersioningSystem_deb_6_0() {
    static const VersioningSystem system;
    return &system;
}

const wrp_EmptyIteratorMakers* GetEmptyIteratorMakers_deb_6_0() {
    static const EmptyIteratorMakers makers;
    return &makers;
}

}  // extern "C"
