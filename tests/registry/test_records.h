// Registrations with plain records, for tests that say everything about an entry themselves.
//
// The types that the registry itself knows by name are registered here for the whole test program.
#ifndef TESTS_REGISTRY_TEST_RECORDS_H
#define TESTS_REGISTRY_TEST_RECORDS_H

#include "registry/inspector_type_info.h"
#include "registry/registration.h"
#include "registry/type_registry.h"

struct TestType : RegistrationObject<TypeRegistration> {
    explicit TestType(const char* name, const char* parent = nullptr, unsigned size = 8)
        : RegistrationObject(GuardType{name, size, size, 8, nullptr, nullptr, parent}) {}
    const GuardType* operator&() { return &GetRecord(); }
};

struct TestProperty : RegistrationObject<PropertyRegistration> {
    TestProperty(const char* singular, const char* plural, const char* index, const char* object, const char* result,
                 bool aggregating = false)
        : RegistrationObject([&] {
              PropertyAccessor accessor{};
              accessor.dependencies = DependsOnlyOnParameters;
              accessor.aggregating = aggregating;
              accessor.singularName = singular;
              accessor.pluralName = plural;
              accessor.indexTypeName = index;
              accessor.directObjectTypeName = object;
              accessor.resultTypeName = result;
              return accessor;
          }()) {}
    const PropertyAccessor* Accessor() { return &GetRecord(); }
};

struct TestCast : RegistrationObject<CastRegistration> {
    TestCast(const char* name, const char* source, const char* target, UnaryThunk thunk = nullptr)
        : RegistrationObject(
              CastDefinition{name, source, target, thunk, nullptr, DependsOnlyOnParameters, nullptr, nullptr, false}) {}
    const CastDefinition* Definition() { return &GetRecord(); }
};

struct TestUnary : RegistrationObject<UnaryOperatorRegistration> {
    TestUnary(const char* operand, const char* result)
        : RegistrationObject(UnaryAccessor{kUnaryMinus, operand, result, nullptr, nullptr, DependsOnlyOnParameters,
                                           nullptr, nullptr}) {}
    const UnaryAccessor* Accessor() { return &GetRecord(); }
};

struct TestBinary : RegistrationObject<BinaryOperatorRegistration> {
    TestBinary(int code, const char* left, const char* right, const char* result, BinaryThunk thunk = nullptr)
        : RegistrationObject(BinaryAccessor{code, left, right, result, thunk, nullptr, DependsOnlyOnParameters, nullptr,
                                            nullptr, nullptr}) {}
    const BinaryAccessor* Accessor() { return &GetRecord(); }
};

inline TestType worldType("", nullptr, 0);
inline TestType undefinedType("undefined", nullptr, 0);
inline TestType integerType("integer");
inline RegistrationObject<TypeRegistration> booleanType(TypeRecord<boolean>());
inline RegistrationObject<TypeRegistration> stringType(TypeRecord<inspector_string>());

#endif
