/* Built against an installed tavlib6: one plain call, one failing call and a batch. */
#include <stdio.h>

#include "tavlib6.h"
#include "tavlib6x.h"

int main(void) {
    double T = tvlTSP(1e5);
    if (tvlGETLASTERROR() != 0) return 1;
    tvlPST(200.0);
    int code = tvlGETLASTERROR();

    const double pressures[3] = {1e5, 1e6, 1e7};
    const double temperature = 700.0;
    const double* inputs[2] = {pressures, &temperature};
    const int64_t strides[2] = {1, 0};
    double h[3];
    int32_t errors[3];
    int64_t failed = tvlxEVALUATE("HPT", 3, inputs, strides, NULL, h, NULL, errors);
    if (failed != 0 || h[0] != tvlHPT(1e5, 700.0) || h[2] != tvlHPT(1e7, 700.0)) return 1;

    printf("TSP(1e5) = %.6f K; PST(200) fails with %d; batch of 3 enthalpies ok\n", T, code);
    return 0;
}
