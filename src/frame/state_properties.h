// The fourteen properties of one state that the combined calls return, and the caller's cells
// they go to.
#ifndef TAVLIB6_STATE_PROPERTIES_H
#define TAVLIB6_STATE_PROPERTIES_H

#include "frame/error_codes.h"

namespace tvl {

// v, u, s, h, cv, w, then the derivatives at constant T by p and at constant p by T.
struct StateProperties {
    double v, u, s, h, cv, w;
    double dvdp, dudp, dsdp, dhdp;
    double dvdT, dudT, dsdT, dhdT;  // dhdT is cp
};

// The fourteen output pointers of a combined export, in the order of StateProperties.
struct OutputCells {
    double* cells[14];

    // A null cell is refused before anything is computed.
    void requireAll() const {
        for (double* cell : cells)
            if (cell == nullptr) throw kBadParameters;
    }
    void write(const StateProperties& state) const {
        const double values[14] = {state.v,    state.u,    state.s,    state.h,    state.cv,
                                   state.w,    state.dvdp, state.dudp, state.dsdp, state.dhdp,
                                   state.dvdT, state.dudT, state.dsdT, state.dhdT};
        for (int k = 0; k < 14; ++k) *cells[k] = values[k];
    }
};

}  // namespace tvl

#endif
