// How an inspector reaches a function of its host.
//
// Each interface of a context is a table of functions that may be partly empty.  A host without the interface, like no
// host at all, is a missing context; an interface without the function is that interface's own error.
#ifndef EVALUATOR_HOST_FUNCTION_H
#define EVALUATOR_HOST_FUNCTION_H

#include "evaluator/inspector_context.h"

template <class Interface, class Function>
Interface InterfaceOf(Function Interface::*entry);

// The function at `Entry` of the thread's current context, never null.  Throws NoInspectorContext, and `Error` where
// the entry is empty.
template <auto Entry, class Error>
auto HostFunction() {
    using Interface = decltype(InterfaceOf(Entry));
    const auto function = ContextInterface<Interface, NoInspectorContext>().*Entry;
    if (function == nullptr) {
        throw Error();
    }
    return function;
}

// The same of an interface whose host may be rewriting what it tells of: throws CannotEvaluateNow while that is so.
template <auto Entry, class Error>
auto HostFunctionAtRest() {
    using Interface = decltype(InterfaceOf(Entry));
    const auto function = HostFunction<Entry, Error>();
    const auto& host = ContextInterface<Interface, NoInspectorContext>();
    if (host.isBusy != nullptr && host.isBusy()) {
        throw CannotEvaluateNow();
    }
    return function;
}

#endif
