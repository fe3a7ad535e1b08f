// What the program and a package support library say to each other.
//
// apt's programming interface changes with its generations, so the program is linked with none of them: it opens, when
// it runs, the support library that was built against the machine's own and sees nothing of apt but these abstract
// classes.  Both sides are built from this one declaration; the order of its operations is their agreement.
//
// Who is given an iterator owns it and deletes it; it must be gone before its cache is.  A text lives as long as the
// cache does, and null stands for one that is not there.  No operation but end and clone may be called on an iterator
// that is at its end.
#ifndef SUPPORT_PACKAGES_DEBIAN_WRAPPERS_H
#define SUPPORT_PACKAGES_DEBIAN_WRAPPERS_H

// What every iterator does.
template <class Iterator>
class wrp_Iterator {
public:
    wrp_Iterator() = default;
    wrp_Iterator& operator=(const wrp_Iterator&) = delete;
    virtual ~wrp_Iterator() = default;

    virtual Iterator* clone() const = 0;
    virtual bool end() const = 0;
    virtual void next() = 0;

protected:
    wrp_Iterator(const wrp_Iterator&) = default;
};

// An opened cache.  It goes to its destroyer, not to delete.
class wrp_pkgCache {
public:
    class wrp_PkgIterator;
    class wrp_VerIterator;
    class wrp_DepIterator;
    class wrp_VerFileIterator;

    wrp_pkgCache() = default;
    wrp_pkgCache(const wrp_pkgCache&) = delete;
    wrp_pkgCache& operator=(const wrp_pkgCache&) = delete;
    virtual ~wrp_pkgCache() = default;

    virtual wrp_PkgIterator* PkgBegin() const = 0;
};

// The packages by name and architecture, those without any version included.
class wrp_pkgCache::wrp_PkgIterator : public wrp_Iterator<wrp_PkgIterator> {
public:
    virtual const char* Name() const = 0;
    virtual bool HasCurrentVer() const = 0;

    virtual wrp_VerIterator* CurrentVer() const = 0;
    virtual wrp_VerIterator* VersionList() const = 0;
};

// The versions of a package.
class wrp_pkgCache::wrp_VerIterator : public wrp_Iterator<wrp_VerIterator> {
public:
    virtual const char* VerStr() const = 0;
    virtual const char* Section() const = 0;
    virtual const char* Arch() const = 0;
    virtual const char* PkgName() const = 0;

    // Whether it is the package's current version.
    virtual bool IsCurrent() const = 0;

    // Where the version is to be had, in apt's words; the text lives until the next call.
    virtual const char* RelStr() = 0;

    virtual wrp_PkgIterator* ParentPkg() const = 0;
    virtual wrp_VerFileIterator* FileList() const = 0;
    virtual wrp_DepIterator* DependsList() const = 0;

    // The dependencies of others on the package.
    virtual wrp_DepIterator* RevDependsList() const = 0;
};

// Dependencies, each alternative by itself.  What apt adds for machines of several architectures is left out.
class wrp_pkgCache::wrp_DepIterator : public wrp_Iterator<wrp_DepIterator> {
public:
    virtual const char* DepType() const = 0;

    // Debian's signs; empty where every version will do.
    virtual const char* CompType() const = 0;
    virtual const char* TargetVer() const = 0;
    virtual const char* TargetPkgName() const = 0;
    virtual bool IsCritical() const = 0;

    // Whose dependency it is.
    virtual const char* ParentPkgName() const = 0;
    virtual const char* ParentVerStr() const = 0;
};

// The files that tell of a version.
class wrp_pkgCache::wrp_VerFileIterator : public wrp_Iterator<wrp_VerFileIterator> {
public:
    virtual const char* FileName() const = 0;
};

// The order of versions: each operation gives a negative number, zero or a positive one.
class wrp_pkgVersioningSystem {
public:
    virtual int CmpVersion(const char* a, const char* b) const = 0;

    // Of one part of a version.  The byte behind each part is looked at and must be there.
    virtual int CmpPart(const char* a, const char* aEnd, const char* b, const char* bEnd) const = 0;

protected:
    ~wrp_pkgVersioningSystem() = default;
};

// Makes iterators that are at their end, of no cache.
class wrp_EmptyIteratorMakers {
public:
    virtual wrp_pkgCache::wrp_PkgIterator* MakePkgIterator() const = 0;
    virtual wrp_pkgCache::wrp_VerIterator* MakeVerIterator() const = 0;
    virtual wrp_pkgCache::wrp_DepIterator* MakeDepIterator() const = 0;
    virtual wrp_pkgCache::wrp_VerFileIterator* MakeVerFileIterator() const = 0;

protected:
    ~wrp_EmptyIteratorMakers() = default;
};

// The entry points of a support library, found by the names that the program has for its generation.  What the two
// getters give is the library's own.  The creator fails by an exception.
using CacheCreator = wrp_pkgCache*();
using CacheDestroyer = void(wrp_pkgCache*);
using VersioningSystemGetter = const wrp_pkgVersioningSystem*();
using EmptyIteratorMakersGetter = const wrp_EmptyIteratorMakers*();

#endif
