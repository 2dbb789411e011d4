// The shape every suite function shares. The call is counted and may be made to fail (`enter`);
// then the object its handle names is looked up; a handle that names nothing, or `valid` false (a
// pointer the caller must hand over is null, a value out of range), makes it A_Err_PARAMETER;
// only then does `body` do the work and give the result.
#pragma once

#include "host/host_state.h"

namespace host::detail {

// Every pointer handed over.
template <typename... Pointers>
constexpr bool given(Pointers... pointers) {
    return ((pointers != nullptr) && ...);
}

template <typename Body>
A_Err hostCall(const char* function, bool valid, Body&& body) {
    A_Err err = A_Err_NONE;
    State* s = enter(function, err);
    if (s == nullptr) {
        return err;
    }
    return valid ? body(*s) : A_Err_PARAMETER;
}

template <typename Body>
A_Err hostCall(const char* function, Body&& body) {
    return hostCall(function, true, body);
}

// `find` gives a pointer into the state, null when there is nothing; `body` gets what it found.
template <typename Find, typename Body>
A_Err hostCallOn(const char* function, Find&& find, bool valid, Body&& body) {
    return hostCall(function, valid, [&](State& s) {
        auto* found = find(s);
        return found == nullptr ? A_Err_PARAMETER : body(s, *found);
    });
}

template <typename Body>
A_Err onLayer(const char* function, AEGP_LayerH layer, bool valid, Body&& body) {
    return hostCall(function, valid, [&](State& s) {
        const LayerPlace place = placeOf(s, layer);
        return place.comp == nullptr ? A_Err_PARAMETER : body(s, place);
    });
}

template <typename Body>
A_Err onComp(const char* function, AEGP_CompH comp, bool valid, Body&& body) {
    return hostCallOn(
        function, [&](State& s) { return compOf(s, comp); }, valid, body);
}

template <typename Body>
A_Err onCollection(const char* function, AEGP_CollectionH collection, bool valid, Body&& body) {
    return hostCallOn(
        function, [&](State& s) { return collectionOf(s, collection); }, valid, body);
}

}  // namespace host::detail
