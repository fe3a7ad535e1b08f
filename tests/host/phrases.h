// A phrase in its two spellings, asked of a host.
#ifndef TESTS_HOST_PHRASES_H
#define TESTS_HOST_PHRASES_H

#include <gtest/gtest.h>

#include <string>

#include "tests/inspectors/ask.h"

// One phrase with its plural as it is registered, what it is asked of (" of action 1", "" for the world), and the one
// value that it has there.
struct Phrase {
    std::string singular;
    std::string plural;
    std::string of;
    std::string value;
};

// Both spellings answer with the value.
inline void ExpectValue(InspectorContext& host, const Phrase& phrase) {
    EXPECT_EQ(Ask(phrase.singular + phrase.of, &host), Values({phrase.value})) << phrase.singular << phrase.of;
    EXPECT_EQ(Ask(phrase.plural + phrase.of, &host), Values({phrase.value})) << phrase.plural << phrase.of;
}

// Neither has a value, the plural without a failure.
inline void ExpectNone(InspectorContext& host, const Phrase& phrase) {
    EXPECT_EQ(Ask(phrase.singular + phrase.of, &host), DoesNotExist()) << phrase.singular << phrase.of;
    EXPECT_EQ(Ask(phrase.plural + phrase.of, &host), Nothing()) << phrase.plural << phrase.of;
}

// Both fail in this way.
inline void ExpectFailure(InspectorContext* host, const Phrase& phrase, const std::string& failure) {
    EXPECT_EQ(Ask(phrase.singular + phrase.of, host), Fails(failure)) << phrase.singular << phrase.of;
    EXPECT_EQ(Ask(phrase.plural + phrase.of, host), Fails(failure)) << phrase.plural << phrase.of;
}

#endif
