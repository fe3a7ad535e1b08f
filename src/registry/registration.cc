#include "registry/registration.h"

#include <ctime>
#include <limits>

#include "registry/type_registry.h"

template <class R, class E, size_t B>
Registration<R, E, B>::Registration(void* block, size_t size, const R& record) {
    if (size < sizeof(R)) {
        throw E();
    }
    record_ = new (block) R(record);
    RegistrationList<Registration>::Instance().Append(this);
    TypeRegistry::m_validRegistry = nullptr;
}

template <class R, class E, size_t B>
Registration<R, E, B>::~Registration() {
    RegistrationList<Registration>::Instance().Remove(this);
    TypeRegistry::m_validRegistry = nullptr;
}

template class Registration<GuardType, TypeRegistrationBlockTooSmall, 512>;
template class Registration<PropertyAccessor, PropertyRegistrationBlockTooSmall, 256>;
template class Registration<CastDefinition, CastRegistrationBlockTooSmall, 256>;
template class Registration<UnaryAccessor, UnaryOperatorRegistrationBlockTooSmall, 256>;
template class Registration<BinaryAccessor, BinaryOperatorRegistrationBlockTooSmall, 256>;
template class Registration<CacheRecord, CacheRegistrationBlockTooSmall, 256>;
template class RegistrationList<TypeRegistration>;
template class RegistrationList<PropertyRegistration>;
template class RegistrationList<CastRegistration>;
template class RegistrationList<UnaryOperatorRegistration>;
template class RegistrationList<BinaryOperatorRegistration>;
template class RegistrationList<CacheRegistration>;

void ClearCaches(bool forever) {
    Instant expiry = std::numeric_limits<Instant>::max();
    if (!forever) {
        timespec now{};
        clock_gettime(CLOCK_REALTIME, &now);
        expiry = static_cast<Instant>(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
    }
    RegistrationList<CacheRegistration>& list = RegistrationList<CacheRegistration>::Instance();
    const std::lock_guard<std::recursive_mutex> hold(list.Mutex());
    for (RegistrationList<CacheRegistration>::Iterator entry(list); !entry.AtEnd(); entry.Next()) {
        (*entry).clear(expiry, (*entry).datum);
    }
}
