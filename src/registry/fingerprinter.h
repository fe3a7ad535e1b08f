// What a result depended on, boiled down to two words.
#ifndef REGISTRY_FINGERPRINTER_H
#define REGISTRY_FINGERPRINTER_H

#include <cstdint>

#include "foundation/const_data.h"

class DependencyNode;

class Fingerprinter {
public:
    // Bit 31 of `dependencies`: bytes of values went into `sum`, so that only evaluating can judge the result.
    static constexpr uint32_t valueSeen = uint32_t{1} << 31;

    uint32_t sum = 0;           // A hash of what was seen.
    uint32_t dependencies = 0;  // Bit n, 0 to 30: the dependency node with number n.

    void AddByte(unsigned char byte) { sum = sum * 17 + byte; }

    // Adds the 24-bit cyclic checksum of the bytes and sets valueSeen.
    void AddData(const unsigned char* begin, const unsigned char* end);
    void AddData(ConstData data) { AddData(data.begin, data.end); }

    void Merge(const Fingerprinter& other) {
        sum += other.sum;
        dependencies |= other.dependencies;
    }

    // Sets the node's bit; a node whose number has no bit is asked for its present state instead, as a value is.
    void AddDependency(DependencyNode& node);
};

using DependencyFunction = void (*)(Fingerprinter&);

// The dependency function of a pure function of its arguments: there is nothing to add.
inline void DependsOnlyOnParameters(Fingerprinter&) {}

#endif
