// A package support library over a small cache of its own: each package with its versions, each version with what is
// asked of it.  WITHOUT_CREATOR, WITHOUT_DESTROYER, WITHOUT_VERSIONING and WITHOUT_MAKERS leave an entry point out;
// UNRESOLVED calls a function that is nowhere.  FAILING has a cache that never opens, and FAILING_ODDLY one that fails
// by what is no exception class; NO_CACHE gives none.
#include <array>
#include <cstring>
#include <stdexcept>

#include "support/packages/debian_wrappers.h"

namespace {

struct FakeDependency {
    const char* type;
    const char* op;
    const char* version;
    const char* target;
    bool critical;
};

struct FakeVersion {
    const char* text;
    const char* section;
    const char* arch;
    bool current;
};

struct FakePackage {
    const char* name;
    std::array<FakeVersion, 2> versions;
    size_t count;
};

// One without versions first, last and in between; one of two versions, of which the second is installed.
constexpr FakePackage kPackages[] = {
    {"empty", {}, 0},
    {"one", {{{"1:2-3", "admin", "all", false}}}, 1},
    {"virtual", {}, 0},
    {"two", {{{"2.0", nullptr, "amd64", false}, {"1.0-1", "libs", "amd64", true}}}, 2},
    {"one", {{{"9", "other", "i386", true}}}, 1},
    {"last", {}, 0},
};
constexpr FakeDependency kDependencies[] = {
    {"Depends", ">=", "1:1-1", "one", true},
    {"Suggests", "", nullptr, "virtual", false},
};
constexpr const char* kFiles[] = {"/lists/a", nullptr, "/status"};

template <class Base, class Derived>
class Walk : public Base {
public:
    explicit Walk(size_t at, size_t count) : at_(at), count_(count) {}
    Base* clone() const override { return new Derived(static_cast<const Derived&>(*this)); }
    bool end() const override { return at_ >= count_; }
    void next() override { ++at_; }

protected:
    size_t at_;
    size_t count_;
};

class Dep : public Walk<wrp_pkgCache::wrp_DepIterator, Dep> {
public:
    using Walk::Walk;
    const char* DepType() const override { return kDependencies[at_].type; }
    const char* CompType() const override { return kDependencies[at_].op; }
    const char* TargetVer() const override { return kDependencies[at_].version; }
    const char* TargetPkgName() const override { return kDependencies[at_].target; }
    bool IsCritical() const override { return kDependencies[at_].critical; }
    const char* ParentPkgName() const override { return at_ == 0 ? "two" : "one"; }
    const char* ParentVerStr() const override { return at_ == 0 ? "2.0" : nullptr; }
};

class VerFile : public Walk<wrp_pkgCache::wrp_VerFileIterator, VerFile> {
public:
    using Walk::Walk;
    const char* FileName() const override { return kFiles[at_]; }
};

class Ver : public Walk<wrp_pkgCache::wrp_VerIterator, Ver> {
public:
    Ver(const FakePackage* package, size_t at, size_t count) : Walk(at, count), package_(package) {}
    const char* VerStr() const override { return package_->versions[at_].text; }
    const char* Section() const override { return package_->versions[at_].section; }
    const char* Arch() const override { return package_->versions[at_].arch; }
    const char* PkgName() const override { return package_->name; }
    bool IsCurrent() const override { return package_->versions[at_].current; }
    const char* RelStr() override { return "stable"; }
    wrp_pkgCache::wrp_PkgIterator* ParentPkg() const override;
    wrp_pkgCache::wrp_VerFileIterator* FileList() const override { return new VerFile(0, 3); }
    wrp_pkgCache::wrp_DepIterator* DependsList() const override { return new Dep(0, at_ == 0 ? 2 : 0); }
    wrp_pkgCache::wrp_DepIterator* RevDependsList() const override { return new Dep(0, at_ == 0 ? 2 : 0); }

private:
    const FakePackage* package_;
};

class Pkg : public Walk<wrp_pkgCache::wrp_PkgIterator, Pkg> {
public:
    using Walk::Walk;
    const char* Name() const override { return kPackages[at_].name; }
    bool HasCurrentVer() const override { return Current() < kPackages[at_].count; }
    wrp_pkgCache::wrp_VerIterator* CurrentVer() const override {
        return new Ver(&kPackages[at_], Current(), kPackages[at_].count);
    }
    wrp_pkgCache::wrp_VerIterator* VersionList() const override {
        return new Ver(&kPackages[at_], 0, kPackages[at_].count);
    }

private:
    size_t Current() const {
        size_t i = 0;
        while (i < kPackages[at_].count && !kPackages[at_].versions[i].current) {
            ++i;
        }
        return i;
    }
};

wrp_pkgCache::wrp_PkgIterator* Ver::ParentPkg() const {
    return new Pkg(static_cast<size_t>(package_ - kPackages), std::size(kPackages));
}

class Cache final : public wrp_pkgCache {
public:
    wrp_PkgIterator* PkgBegin() const override { return new Pkg(0, std::size(kPackages)); }
};

// Byte order, so that it is told apart from apt's; a version that begins with "!" does not compare.
class VersioningSystem final : public wrp_pkgVersioningSystem {
public:
    int CmpVersion(const char* a, const char* b) const override {
        if (*a == '!' || *b == '!') {
            throw std::runtime_error("no order");
        }
        return std::strcmp(a, b);
    }
    // The shorter first.
    int CmpPart(const char* a, const char* aEnd, const char* b, const char* bEnd) const override {
        return static_cast<int>((aEnd - a) - (bEnd - b));
    }
};

class EmptyIteratorMakers final : public wrp_EmptyIteratorMakers {
public:
    wrp_pkgCache::wrp_PkgIterator* MakePkgIterator() const override { return new Pkg(0, 0); }
    wrp_pkgCache::wrp_VerIterator* MakeVerIterator() const override { return new Ver(kPackages, 0, 0); }
    wrp_pkgCache::wrp_DepIterator* MakeDepIterator() const override { return new Dep(0, 0); }
    wrp_pkgCache::wrp_VerFileIterator* MakeVerFileIterator() const override { return new VerFile(0, 0); }
};

int open = 0;

}  // namespace

extern "C" {

// How many caches are open, for tests.
int fakeOpenCaches();
int fakeOpenCaches() { return open; }

CacheCreator CacheCreator_deb_4_10;
CacheDestroyer CacheDestroyer_deb_4_10;
VersioningSystemGetter GetVersioningSystem_deb_4_10;
EmptyIteratorMakersGetter GetEmptyIteratorMakers_deb_4_10;

#ifdef UNRESOLVED
void fakeNowhere();
void fakeCall();
void fakeCall() { fakeNowhere(); }
#endif

#ifndef WITHOUT_CREATOR
wrp_pkgCache* CacheCreator_deb_4_10() {
#if defined(FAILING)
    throw std::runtime_error("the cache is broken");
#elif defined(FAILING_ODDLY)
    throw 1;
#elif defined(NO_CACHE)
    return nullptr;
#else
    ++open;
    return new Cache;
#endif
}
#endif

#ifndef WITHOUT_DESTROYER
void CacheDestroyer_deb_4_10(wrp_pkgCache* cache) {
    --open;
    delete cache;
}
#endif

#ifndef WITHOUT_VERSIONING
const wrp_pkgVersioningSystem* GetVersioningSystem_deb_4_10() {
    static const VersioningSystem system;
    return &system;
}
#endif

#ifndef WITHOUT_MAKERS
const wrp_EmptyIteratorMakers* GetEmptyIteratorMakers_deb_4_10() {
    static const EmptyIteratorMakers makers;
    return &makers;
}
#endif

}  // extern "C"
