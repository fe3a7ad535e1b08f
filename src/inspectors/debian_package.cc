#include "inspectors/debian_package.h"

#include <string>

#include "inspectors/client_setting.h"
#include "inspectors/debver.h"
#include "values/string.h"

std::unique_ptr<VerIterator> GetInnerVersionOfPackageIterator(const PkgIterator& package) {
    return std::unique_ptr<VerIterator>(package.VersionList());
}

namespace {

// The host's settings switch the family off.
struct DebianPackageInspectorDefinedError : InspectorDefinedError {
    DebianPackageInspectorDefinedError() noexcept : InspectorDefinedError("debianpackage inspector is disabled") {}
};

debianpackagecache DebianPackage() {
    if (ClientSettingIs("_OSLClient_Inspector_DisableDebianPackage", "1")) {
        throw DebianPackageInspectorDefinedError();
    }
    return debianpackagecache(OpenDebianPackageDatabase());
}

// The cache's text, which may not be there; the value may outlive the cache, so it has its own copy.
std::optional<inspector_string> TextOf(const char* text) {
    return text == nullptr ? std::nullopt : std::optional(CopiedString(text));
}

inspector_string PkgLibVersion(const debianpackagecache& cache) {
    return CopiedString(cache.Database()->Library().PkgLibVersion());
}

// A text of what a value's iterator is on.
template <auto Text, class Value>
std::optional<inspector_string> TextOfValue(const Value& value) {
    return TextOf((value.At().*Text)());
}

template <auto Test, class Value>
boolean TestOfValue(const Value& value) {
    return (value.At().*Test)();
}

// A version of what a value's iterator is on.
template <auto Text, class Value>
std::optional<debian_package_version> VersionOfValue(const Value& value) {
    const char* text = (value.At().*Text)();
    return text == nullptr ? std::nullopt : std::optional(debian_package_version(std::string_view(text)));
}

std::optional<debianpkg_version> InstalledVersion(const debian_base_package& package) {
    std::unique_ptr<VerIterator> current(package.At().CurrentVer());
    return current->end() ? std::nullopt : std::optional(debianpkg_version(package.Database(), std::move(current)));
}

debian_base_package BasePackage(const debianpkg_version& version) {
    return debian_base_package(version.Database(), std::unique_ptr<PkgIterator>(version.At().ParentPkg()));
}

// "name version"
std::optional<inspector_string> VersionedPackageAsString(const debian_versioned_package& package) {
    const char* name = package.At().PkgName();
    const char* version = package.At().VerStr();
    if (name == nullptr || version == nullptr) {
        return std::nullopt;
    }
    return CopiedString(std::string(name) + " " + version);
}

// ---- Walks ----------------------------------------------------------------------------------------------------------

// All packages, or those of a name.
class base_package_iterator {
public:
    void Start(Of, const debianpackagecache& cache) {
        walk_.Begin(cache.Database(), std::unique_ptr<PkgIterator>(cache.Database()->Cache().PkgBegin()));
    }
    bool Finished(Of, const debianpackagecache&) const { return walk_.End(); }
    debian_base_package Next(Of, const debianpackagecache&) { return Taken(); }

    void StartNamed(const inspector_string& name, Of, const debianpackagecache& cache) {
        Start(Of(), cache);
        SkipOthers(name);
    }
    bool FinishedNamed(const inspector_string& name, Of, const debianpackagecache&) {
        SkipOthers(name);
        return walk_.End();
    }
    debian_base_package NextNamed(const inspector_string&, Of, const debianpackagecache&) { return Taken(); }

private:
    debian_base_package Taken() {
        debian_base_package value = walk_.Value();
        walk_.Step();
        return value;
    }
    void SkipOthers(const inspector_string& name) {
        while (!walk_.End() && name.View() != walk_.Current().Name()) {
            walk_.Step();
        }
    }

    DebianBasePackageIteratorWrapper walk_;
};

// All versions of all packages, or of those of a name.
class package_iterator {
public:
    void Start(Of, const debianpackagecache& cache) { Begin(cache, {}, true); }
    bool Finished(Of, const debianpackagecache&) const { return walk_.End(); }
    debian_versioned_package Next(Of, const debianpackagecache&) {
        debian_versioned_package value = walk_.Value();
        walk_.Step();
        return value;
    }

    void StartNamed(const inspector_string& name, Of, const debianpackagecache& cache) {
        Begin(cache, name.View(), false);
    }
    bool FinishedNamed(const inspector_string&, Of, const debianpackagecache&) const { return walk_.End(); }
    debian_versioned_package NextNamed(const inspector_string& name, Of, const debianpackagecache&) {
        debian_versioned_package value = walk_.Value();
        walk_.Step(name.View(), false);
        return value;
    }

private:
    void Begin(const debianpackagecache& cache, std::string_view name, bool anyName) {
        const DebianPackageDatabase& database = *cache.Database();
        walk_.Begin(cache.Database(),
                    std::unique_ptr<VerIterator>(database.Library().EmptyIteratorMakers()->MakeVerIterator()),
                    std::unique_ptr<PkgIterator>(database.Cache().PkgBegin()), name, anyName);
    }

    DebianVersionedPackageIteratorWrapper walk_;
};

// What hangs on a value: the list that List gives of its iterator.
template <class Walk, class Value, class R, auto List>
class list_iterator {
public:
    void Start(Of, const Value& value) {
        using Inner = std::remove_pointer_t<decltype((value.At().*List)())>;
        walk_.Begin(value.Database(), std::unique_ptr<Inner>((value.At().*List)()));
    }
    bool Finished(Of, const Value&) const { return walk_.End(); }
    R Next(Of, const Value&) {
        R value = walk_.Value();
        walk_.Step();
        return value;
    }

private:
    Walk walk_;
};

template <class Walk, class R, class O, auto List, class Iterator = list_iterator<Walk, O, R, List>>
using ListOf =
    IteratedPropertyOfObject<Iterator, R, O, &Iterator::Next, &Iterator::Next, &Iterator::Start, &Iterator::Finished>;

template <class Iterator, class R>
using WalkOfCache = IteratedPropertyOfObject<Iterator, R, debianpackagecache, &Iterator::Next, &Iterator::Next,
                                             &Iterator::Start, &Iterator::Finished>;
template <class Iterator, class R>
using NamedWalkOfCache =
    IteratedPropertyByIndexOfObject<Iterator, R, inspector_string, debianpackagecache, &Iterator::NextNamed,
                                    &Iterator::NextNamed, &Iterator::StartNamed, &Iterator::FinishedNamed>;

template <class O, auto Text>
using TextProperty = Property<O, inspector_string, TextOfValue<Text, O>>;
template <class O, auto Text>
using VersionProperty = Property<O, debian_package_version, VersionOfValue<Text, O>>;
template <class O, auto Test>
using TestProperty = Property<O, boolean, TestOfValue<Test, O>>;
template <class O, auto Text>
using TextCast = Cast<inspector_string, O, TextOfValue<Text, O>>;

// clang-format off
using Base       = debian_base_package;
using Versioned  = debian_versioned_package;
using Version    = debianpkg_version;
using Dependency = debianpkg_dependency;
using Reverse    = debianpkg_reverse_dependencies;

Type<debianpackagecache>                                                                        cacheType;
Type<debian_base_package>                                                                       baseType;
Type<debian_versioned_package>                                                                  versionedType;
Type<debianpkg_version>                                                                         versionType;
Type<debianpkg_verfile>                                                                         verFileType;
Type<debianpkg_dependency>                                                                      typeOfDependency;
Type<debianpkg_reverse_dependencies>                                                            reverseType;

GlobalProperty<debianpackagecache, DebianPackage>                                               debianPackage       {"debianpackage", "debianpackages", ByValueOnly};
Property<debianpackagecache, inspector_string, PkgLibVersion>                                   pkgLibVersion       {"pkglibversion", "pkglibversions"};
NamedWalkOfCache<base_package_iterator, Base>                                                   baseNamed           {"base package", "base packages"};
WalkOfCache<base_package_iterator, Base>                                                        base                {"base package", "base packages"};
NamedWalkOfCache<package_iterator, Versioned>                                                   packageNamed        {"package", "packages"};
WalkOfCache<package_iterator, Versioned>                                                        package             {"package", "packages"};

TextProperty<Base, &PkgIterator::Name>                                                          baseName            {"name", "names"};
TestProperty<Base, &PkgIterator::HasCurrentVer>                                                 baseInstalled       {"currently installed", "currently installeds"};
Property<Base, Version, InstalledVersion>                                                       installedVersion    {"installed version", "installed versions"};
ListOf<DebianPkgVersionIteratorWrapper, Version, Base, &PkgIterator::VersionList>               pkgVersion          {"pkg version", "pkg versions"};

TextProperty<Versioned, &VerIterator::PkgName>                                                  name                {"name", "names"};
VersionProperty<Versioned, &VerIterator::VerStr>                                                version             {"version", "versions"};
TextProperty<Versioned, &VerIterator::Section>                                                  section             {"section", "sections"};
TextProperty<Versioned, &VerIterator::Arch>                                                     architecture        {"architecture", "architectures"};
TestProperty<Versioned, &VerIterator::IsCurrent>                                                installed           {"currently installed", "currently installeds"};
TextProperty<Versioned, &VerIterator::RelStr>                                                   release             {"release", "releases"};
ListOf<DebianVerFileIteratorWrapper, debianpkg_verfile, Versioned, &VerIterator::FileList>      verFile             {"verfile", "verfiles"};
ListOf<DebianPkgDependsIteratorWrapper, Dependency, Versioned, &VerIterator::DependsList>       dependency          {"dependency", "dependencies"};
ListOf<DebianPkgRevDependsIteratorWrapper, Reverse, Versioned, &VerIterator::RevDependsList>    reverse             {"reverse dependency", "reverse dependencies"};

Property<Version, Base, BasePackage>                                                            baseOfVersion       {"base package", "base packages"};
TextProperty<Version, &VerIterator::Section>                                                    sectionOfVersion    {"section", "sections"};
TextProperty<Version, &VerIterator::Arch>                                                       architectureOf      {"architecture", "architectures"};

TextProperty<Dependency, &DepIterator::DepType>                                                 dependencyType      {"type", "types"};
TextProperty<Dependency, &DepIterator::CompType>                                                compareOp           {"compare_op", "compare_ops"};
VersionProperty<Dependency, &DepIterator::TargetVer>                                            dependencyVersion   {"version", "versions"};
TestProperty<Dependency, &DepIterator::IsCritical>                                              critical            {"critical", "criticals"};
TextProperty<Reverse, &DepIterator::ParentVerStr>                                               reverseVersion      {"version", "versions"};

TextCast<Base, &PkgIterator::Name>                                                              baseAsString        {"string"};
Cast<inspector_string, Versioned, VersionedPackageAsString>                                     versionedAsString   {"string"};
TextCast<Version, &VerIterator::VerStr>                                                         versionAsString     {"string"};
TextCast<debianpkg_verfile, &VerFileIterator::FileName>                                         verFileAsString     {"string"};
TextCast<Dependency, &DepIterator::TargetPkgName>                                               dependencyAsString  {"string"};
TextCast<Reverse, &DepIterator::ParentPkgName>                                                  reverseAsString     {"string"};
Cast<debian_package_version, Version, VersionOfValue<&VerIterator::VerStr, Version>>            versionAsDebver     {"debian package version"};
// clang-format on

}  // namespace
