// Registration: how a unit's types, properties, casts and operators come into the language.
//
// A registration is a static object.  Its constructor places the record in a block of static storage and chains the
// record's link to the list of its kind; nothing touches the heap, so that two thousand of them cost a program's start
// no more than their links.  Adding or removing one makes the registry's tables invalid, and the next look-up builds
// them anew.  The order of a list is the order of initialisation, on which nothing may rely.
#ifndef REGISTRY_REGISTRATION_H
#define REGISTRY_REGISTRATION_H

#include <cstddef>
#include <mutex>
#include <new>
#include <utility>

#include "foundation/debuggable_exception.h"
#include "registry/records.h"

struct TypeRegistrationBlockTooSmall : DebuggableException {
    TypeRegistrationBlockTooSmall() noexcept : DebuggableException("TypeRegistrationBlockTooSmall") {}
};
struct PropertyRegistrationBlockTooSmall : DebuggableException {
    PropertyRegistrationBlockTooSmall() noexcept : DebuggableException("PropertyRegistrationBlockTooSmall") {}
};
struct CastRegistrationBlockTooSmall : DebuggableException {
    CastRegistrationBlockTooSmall() noexcept : DebuggableException("CastRegistrationBlockTooSmall") {}
};
struct UnaryOperatorRegistrationBlockTooSmall : DebuggableException {
    UnaryOperatorRegistrationBlockTooSmall() noexcept : DebuggableException("UnaryOperatorRegistrationBlockTooSmall") {}
};
struct BinaryOperatorRegistrationBlockTooSmall : DebuggableException {
    BinaryOperatorRegistrationBlockTooSmall() noexcept
        : DebuggableException("BinaryOperatorRegistrationBlockTooSmall") {}
};
struct CacheRegistrationBlockTooSmall : DebuggableException {
    CacheRegistrationBlockTooSmall() noexcept : DebuggableException("CacheRegistrationBlockTooSmall") {}
};

template <class Kind>
class RegistrationList;

// The link of one record: constructed with the block that the record is placed in.
template <class RecordType, class BlockTooSmallError, size_t BlockBytes>
class Registration {
public:
    using Record = RecordType;
    using BlockTooSmall = BlockTooSmallError;

    // The bytes of the block that a unit gives for a record of this kind.
    static constexpr size_t kBlockSize = BlockBytes;

    // Places a copy of `record` in the block and enters it in its list.  Throws BlockTooSmall.
    Registration(void* block, size_t size, const Record& record);
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration();

    Record& GetRecord() { return *record_; }

private:
    friend class RegistrationList<Registration>;

    Registration* next_ = nullptr;
    Registration* previous_ = nullptr;
    Record* record_;
};

using TypeRegistration = Registration<GuardType, TypeRegistrationBlockTooSmall, 512>;
using PropertyRegistration = Registration<PropertyAccessor, PropertyRegistrationBlockTooSmall, 256>;
using CastRegistration = Registration<CastDefinition, CastRegistrationBlockTooSmall, 256>;
using UnaryOperatorRegistration = Registration<UnaryAccessor, UnaryOperatorRegistrationBlockTooSmall, 256>;
using BinaryOperatorRegistration = Registration<BinaryAccessor, BinaryOperatorRegistrationBlockTooSmall, 256>;
using CacheRegistration = Registration<CacheRecord, CacheRegistrationBlockTooSmall, 256>;

// All live registrations of one kind.  An iterator that stands in the list stays valid while entries come and go: it
// is moved on when the entry that it stands at is removed, and meets what is added behind it.
template <class Kind>
class RegistrationList {
public:
    using Record = typename Kind::Record;

    static RegistrationList& Instance() {
        static RegistrationList list;
        return list;
    }

    class Iterator {
    public:
        explicit Iterator(RegistrationList& list) : list_(list) {
            const std::lock_guard<std::recursive_mutex> hold(list_.mutex_);
            current_ = list_.first_;
            outer_ = std::exchange(list_.iterators_, this);
        }
        Iterator(const Iterator&) = delete;
        Iterator& operator=(const Iterator&) = delete;
        ~Iterator() {
            const std::lock_guard<std::recursive_mutex> hold(list_.mutex_);
            for (Iterator** link = &list_.iterators_; *link != nullptr; link = &(*link)->outer_) {
                if (*link == this) {
                    *link = outer_;
                    break;
                }
            }
        }

        bool AtEnd() const { return current_ == nullptr; }
        Record& operator*() const { return *current_->record_; }
        void Next() {
            if (moved_) {
                moved_ = false;
            } else {
                current_ = current_->next_;
            }
        }

    private:
        friend class RegistrationList;
        RegistrationList& list_;
        Kind* current_ = nullptr;
        Iterator* outer_ = nullptr;
        bool moved_ = false;  // The entry was removed under the iterator, which already stands at the next.
    };

    // Held while the list is read.
    std::recursive_mutex& Mutex() { return mutex_; }
    size_t Size() const { return size_; }

private:
    friend Kind;

    void Append(Kind* entry) {
        const std::lock_guard<std::recursive_mutex> hold(mutex_);
        entry->previous_ = last_;
        (last_ == nullptr ? first_ : last_->next_) = entry;
        last_ = entry;
        ++size_;
        for (Iterator* iterator = iterators_; iterator != nullptr; iterator = iterator->outer_) {
            if (iterator->current_ == nullptr && iterator->moved_) {
                iterator->current_ = entry;
            }
        }
    }
    void Remove(Kind* entry) {
        const std::lock_guard<std::recursive_mutex> hold(mutex_);
        for (Iterator* iterator = iterators_; iterator != nullptr; iterator = iterator->outer_) {
            if (iterator->current_ == entry) {
                iterator->current_ = entry->next_;
                iterator->moved_ = true;
            }
        }
        (entry->previous_ == nullptr ? first_ : entry->previous_->next_) = entry->next_;
        (entry->next_ == nullptr ? last_ : entry->next_->previous_) = entry->previous_;
        --size_;
    }

    std::recursive_mutex mutex_;
    Kind* first_ = nullptr;
    Kind* last_ = nullptr;
    Iterator* iterators_ = nullptr;
    size_t size_ = 0;
};

// The block and the link of one registration together: what a unit's static object is made of.
template <class Kind>
class RegistrationObject {
public:
    explicit RegistrationObject(const typename Kind::Record& record) : link_(block_, sizeof block_, record) {}
    typename Kind::Record& GetRecord() { return link_.GetRecord(); }

private:
    alignas(16) unsigned char block_[Kind::kBlockSize];
    Kind link_;
};

// Calls every registered cache with the present time, or, with `forever`, with the largest time, at which everything
// goes.
void ClearCaches(bool forever);

extern template class RegistrationList<TypeRegistration>;
extern template class RegistrationList<PropertyRegistration>;
extern template class RegistrationList<CastRegistration>;
extern template class RegistrationList<UnaryOperatorRegistration>;
extern template class RegistrationList<BinaryOperatorRegistration>;
extern template class RegistrationList<CacheRegistration>;
extern template class Registration<GuardType, TypeRegistrationBlockTooSmall, 512>;
extern template class Registration<PropertyAccessor, PropertyRegistrationBlockTooSmall, 256>;
extern template class Registration<CastDefinition, CastRegistrationBlockTooSmall, 256>;
extern template class Registration<UnaryAccessor, UnaryOperatorRegistrationBlockTooSmall, 256>;
extern template class Registration<BinaryAccessor, BinaryOperatorRegistrationBlockTooSmall, 256>;
extern template class Registration<CacheRecord, CacheRegistrationBlockTooSmall, 256>;

#endif
