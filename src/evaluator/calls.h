// The one place where an inspector's NoSuchObject is caught: the calls of casts, operators and property stages.
#ifndef EVALUATOR_CALLS_H
#define EVALUATOR_CALLS_H

#include "evaluator/failure.h"
#include "registry/records.h"

inline bool CallThunk(UnaryThunk thunk, void* storage, const void* operand, const void* data) {
    try {
        return thunk(storage, operand, data);
    } catch (const NoSuchObject&) {
        return false;
    }
}

inline bool CallThunk(BinaryThunk thunk, void* storage, const void* left, const void* right, const void* data) {
    try {
        return thunk(storage, left, right, data);
    } catch (const NoSuchObject&) {
        return false;
    }
}

inline bool CallStage(StageFunction stage, void* storage, const void* index, const void* object, void* state,
                      const void* data) {
    try {
        return stage(storage, index, object, state, data);
    } catch (const NoSuchObject&) {
        return false;
    }
}

#endif
