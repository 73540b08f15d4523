// The refined backward searches of regions 1, 2 and 5 in lanes: T(p,h), T(p,s) and p(h,s). Each lane
// takes the start of its plain call (the subregion's backward equation, chosen per lane; the sums
// in table order), then Newton steps on the forward equations with the plain call's count rule,
// stop test and clamps. A lane that has stopped keeps its values while the others go on; the
// vector is done when every lane has stopped or failed.
//
// Included by gibbs_lanes.cpp inside its per-target namespace, after the Gibbs sums it uses; no
// include guard, since it is compiled once per target.

constexpr double kLowestT = tvl::kLowestTemperature;
constexpr double kHighestT = tvl::region2::kHighestTemperature;  // the clamp of the region 2 searches

using M = hn::Mask<D>;

HWY_INLINE V lanesOf(D d, double value) { return hn::Set(d, value); }

// x / scale + shift, as the plain equations reduce their arguments (x / scale - c is the same
// operation as x / scale + (-c)).
HWY_INLINE V reduced(D d, V x, double scale, double shift) {
    return hn::Add(hn::Div(x, lanesOf(d, scale)), lanesOf(d, shift));
}

// The exponents of pi in T2a(p,s), each once: pow(x, I) lane by lane from libm, as the plain call.
struct FractionalExponents {
    double value[std::size(tvl::kT2APS)];
    int of[std::size(tvl::kT2APS)];
    int count;
};

constexpr FractionalExponents kT2APSExponents = [] {
    FractionalExponents e{};
    for (std::size_t k = 0; k < std::size(tvl::kT2APS); ++k) {
        int found = -1;
        for (int j = 0; j < e.count; ++j)
            if (e.value[j] == tvl::kT2APS[k].I) found = j;
        if (found < 0) {
            found = e.count++;
            e.value[found] = tvl::kT2APS[k].I;
        }
        e.of[k] = found;
    }
    return e;
}();

template <int RY, std::size_t... K>
HWY_INLINE V fractionalSum(D d, const V* powersOfX, const Powers<RY>& y, std::index_sequence<K...>) {
    V sum = hn::Zero(d);
    ((sum = plus(d, sum, tvl::kT2APS[K].n, powersOfX[kT2APSExponents.of[K]], y.template at<tvl::kT2APS[K].J>(d))),
     ...);
    return sum;
}

// pow is called only in the lanes of `chosen`; the others' sums are not read.
HWY_INLINE V t2aps(D d, M chosen, V p, V s) {
    HWY_ALIGN double x[hn::MaxLanes(d)];
    HWY_ALIGN double lanes[hn::MaxLanes(d)];
    uint8_t wanted[8] = {};
    hn::StoreMaskBits(d, chosen, wanted);
    hn::Store(hn::Div(p, lanesOf(d, 1e6)), d, x);
    V powersOfX[kT2APSExponents.count];
    for (int j = 0; j < kT2APSExponents.count; ++j) {
        for (std::size_t k = 0; k < hn::Lanes(d); ++k)
            lanes[k] = (wanted[k / 8] >> (k % 8)) & 1 ? std::pow(x[k], kT2APSExponents.value[j]) : 0.0;
        powersOfX[j] = hn::Load(d, lanes);
    }
    Powers<extent(tvl::kT2APS, termJ)> y;
    y.fill(d, reduced(d, s, 2000.0, -2.0));
    return fractionalSum(d, powersOfX, y, std::make_index_sequence<std::size(tvl::kT2APS)>());
}

// ---- The starts: the backward equations, the subregion chosen per lane ----

HWY_INLINE V t1phEquation(D d, V p, V h) {
    return backwardSum<tvl::kT1PH>(d, hn::Div(p, lanesOf(d, 1e6)), reduced(d, h, 2.5e6, 1.0));
}

HWY_INLINE V t1psEquation(D d, V p, V s) {
    return backwardSum<tvl::kT1PS>(d, hn::Div(p, lanesOf(d, 1e6)), reduced(d, s, 1000.0, 2.0));
}

HWY_INLINE V p1hsEquation(D d, V h, V s) {
    const V sum = backwardSum<tvl::kP1HS>(d, reduced(d, h, 3.4e6, 0.05), reduced(d, s, 7600.0, 0.05));
    return hn::Mul(lanesOf(d, 1e8), sum);
}

// 2a at and below 4 MPa; above, the 2b/2c line pB2bc(h), a point on it in 2b.
HWY_INLINE V t2phEquation(D d, V p, V h) {
    const V e = hn::Div(h, lanesOf(d, 1000.0));
    const V line = hn::Mul(hn::Add(hn::Add(lanesOf(d, tvl::kB2BC[0]), hn::Mul(e, lanesOf(d, tvl::kB2BC[1]))),
                                   hn::Mul(hn::Mul(e, lanesOf(d, tvl::kB2BC[2])), e)),
                           lanesOf(d, 1e6));
    const M a = hn::Le(p, lanesOf(d, 4e6));
    const M b = hn::AndNot(a, hn::Ge(line, p));
    const M c = hn::AndNot(hn::Or(a, b), hn::FirstN(d, hn::Lanes(d)));
    const V pi = hn::Div(p, lanesOf(d, 1e6));
    V T = hn::Zero(d);
    T = where(d, a, T, [&] { return backwardSum<tvl::kT2APH>(d, pi, reduced(d, h, 2e6, -2.1)); });
    T = where(d, b, T,
              [&] { return backwardSum<tvl::kT2BPH>(d, hn::Sub(pi, lanesOf(d, 2.0)), reduced(d, h, 2e6, -2.6)); });
    T = where(d, c, T,
              [&] { return backwardSum<tvl::kT2CPH>(d, hn::Add(pi, lanesOf(d, 25.0)), reduced(d, h, 2e6, -1.8)); });
    return T;
}

// 2a at and below 4 MPa; above, s = 5850 itself in 2c.
HWY_INLINE V t2psEquation(D d, V p, V s) {
    const M a = hn::Le(p, lanesOf(d, 4e6));
    const M b = hn::AndNot(a, hn::Gt(s, lanesOf(d, 5850.0)));
    const M c = hn::AndNot(hn::Or(a, b), hn::FirstN(d, hn::Lanes(d)));
    const V pi = hn::Div(p, lanesOf(d, 1e6));
    V T = hn::Zero(d);
    T = where(d, a, T, [&] { return t2aps(d, a, p, s); });
    T = where(d, b, T, [&] {
        return backwardSum<tvl::kT2BPS>(d, pi, hn::Sub(lanesOf(d, 10.0), hn::Div(s, lanesOf(d, 785.3))));
    });
    T = where(d, c, T, [&] {
        return backwardSum<tvl::kT2CPS>(d, pi, hn::Sub(lanesOf(d, 2.0), hn::Div(s, lanesOf(d, 2925.1))));
    });
    return T;
}

HWY_INLINE V fourthPowerTimes(D d, V sum, double reducingPressure) {
    const V squared = hn::Mul(sum, sum);
    return hn::Mul(hn::Mul(squared, squared), lanesOf(d, reducingPressure));
}

// 2c below s = 5850; above, the 2a/2b line h2ab(s), a point on it in 2a.
HWY_INLINE V p2hsEquation(D d, V h, V s) {
    const V e = hn::Div(s, lanesOf(d, 1000.0));
    const V line = hn::Mul(
        hn::Add(hn::Mul(hn::Add(hn::Mul(hn::Add(hn::Mul(lanesOf(d, tvl::kH2AB[3]), e), lanesOf(d, tvl::kH2AB[2])), e),
                                lanesOf(d, tvl::kH2AB[1])),
                        e),
                lanesOf(d, tvl::kH2AB[0])),
        lanesOf(d, 1000.0));
    const M c = hn::Lt(s, lanesOf(d, 5850.0));
    const M b = hn::AndNot(c, hn::Gt(h, line));
    const M a = hn::AndNot(hn::Or(c, b), hn::FirstN(d, hn::Lanes(d)));
    V p = hn::Zero(d);
    p = where(d, a, p, [&] {
        return fourthPowerTimes(
            d, backwardSum<tvl::kP2AHS>(d, reduced(d, h, 4.2e6, -0.5), reduced(d, s, 12000.0, -1.2)), 4e6);
    });
    p = where(d, b, p, [&] {
        return fourthPowerTimes(
            d, backwardSum<tvl::kP2BHS>(d, reduced(d, h, 4.1e6, -0.6), reduced(d, s, 7900.0, -1.01)), 1e8);
    });
    p = where(d, c, p, [&] {
        return fourthPowerTimes(d, backwardSum<tvl::kP2CHS>(d, reduced(d, h, 3.5e6, -0.7), reduced(d, s, 5900.0, -1.1)),
                                1e8);
    });
    return p;
}

// ---- The Newton searches ----

struct Found {
    V value;
    V temperature;  // the (h,s) searches' temperature; the value itself elsewhere
    M failed;       // the search threw that it did not converge
};

HWY_INLINE V clampRegion2(D d, V T) {
    return hn::IfThenElse(hn::Lt(T, lanesOf(d, kLowestT)), lanesOf(d, kLowestT),
                          hn::IfThenElse(hn::Gt(T, lanesOf(d, kHighestT)), lanesOf(d, kHighestT), T));
}

HWY_INLINE V clampBelow(D d, V x, double lowest) {
    return hn::IfThenElse(hn::Lt(x, lanesOf(d, lowest)), lanesOf(d, lowest), x);
}

HWY_INLINE V cpOf(D d, V tau, V gTauTau) { return hn::Mul(hn::Mul(hn::Mul(lanesOf(d, -R), tau), tau), gTauTau); }

// A temperature search: T += step(T) on the active lanes while count <= maxIterations and the
// step passes the stop test (> limit, or >= limit where `orEqual`); a lane that stops on or after
// the cap has failed.
template <bool OrEqual, class Step>
HWY_INLINE M temperatureSearch(D d, V& T, M active, V limit, int maxIterations, Step step) {
    M failed = hn::FirstN(d, 0);
    int count = 0;
    do {
        ++count;
        const V dT = step(T);
        T = hn::IfThenElse(active, hn::Add(T, dT), T);
        const V size = hn::Abs(dT);
        const M going =
            count <= maxIterations ? (OrEqual ? hn::Ge(size, limit) : hn::Gt(size, limit)) : hn::FirstN(d, 0);
        if (count >= maxIterations) failed = hn::Or(failed, hn::AndNot(going, active));
        active = hn::And(active, going);
    } while (!hn::AllFalse(d, active));
    return failed;
}

// The region 1 sums at tau, the powers of 7.1 - pi filled once per search.
struct Region1X {
    Powers<kRegion1ReachX> x;
    Region1X(D d, V p) { x.fill(d, hn::Sub(lanesOf(d, 7.1), hn::Div(p, lanesOf(d, tvl::kRegion1Pressure)))); }

    template <unsigned Wanted>
    HWY_INLINE Sums sumsAt(D d, V tau) const {
        Powers<kRegion1ReachY> y;
        y.fill(d, hn::Sub(tau, lanesOf(d, 1.222)));
        return residualSums<kRegion1, Wanted, true>(d, x, y, std::make_index_sequence<kRegion1.size()>());
    }
};

HWY_INLINE Found t1ph(D d, V p, V h, const SearchSettings& s) {
    V T = t1phEquation(d, p, h);
    if (!s.refining) return {T, T, hn::FirstN(d, 0)};
    const V limit = hn::Mul(T, lanesOf(d, s.tolerance));  // fixed at the raw temperature
    const Region1X region1(d, p);
    const M failed = temperatureSearch<false>(d, T, hn::FirstN(d, hn::Lanes(d)), limit, s.maxIterations, [&](V t) {
        const V tau = hn::Div(lanesOf(d, tvl::kRegion1Temperature), t);
        const Sums g = region1.sumsAt<kTau | kTauTau>(d, tau);
        return hn::Div(hn::Neg(hn::Sub(hn::Mul(lanesOf(d, tvl::kRegion1RT), g.gTau), h)), cpOf(d, tau, g.gTauTau));
    });
    if (s.checks) T = clampBelow(d, T, kLowestT);
    return {T, T, failed};
}

HWY_INLINE Found t1ps(D d, V p, V entropy, const SearchSettings& s) {
    V T = t1psEquation(d, p, entropy);
    if (!s.refining) return {T, T, hn::FirstN(d, 0)};
    T = clampBelow(d, T, kLowestT);
    const V limit = hn::Mul(T, lanesOf(d, s.tolerance));
    const Region1X region1(d, p);
    const M failed = temperatureSearch<true>(d, T, hn::FirstN(d, hn::Lanes(d)), limit, s.maxIterations, [&](V t) {
        const V tau = hn::Div(lanesOf(d, tvl::kRegion1Temperature), t);
        const Sums g = region1.sumsAt<kG | kTau | kTauTau>(d, tau);
        const V sNow = hn::Mul(lanesOf(d, R), hn::Sub(hn::Mul(tau, g.gTau), g.g));
        return hn::Div(hn::Mul(hn::Neg(t), hn::Sub(sNow, entropy)), cpOf(d, tau, g.gTauTau));
    });
    if (s.checks) T = clampBelow(d, T, kLowestT);
    return {T, T, failed};
}

// The sums of region 2 at tau, the powers of pi already in x (region2::sumsAt).
template <unsigned Wanted>
HWY_INLINE Sums region2SumsAt(D d, const Powers<kRegion2ReachPi>& x, V pi, V tau, V logPi) {
    Powers<kRegion2ReachY> y;
    y.fill(d, hn::Sub(tau, lanesOf(d, 0.5)));
    const Sums residual =
        residualSums<kRegion2Residual, Wanted, false>(d, x, y, std::make_index_sequence<kRegion2Residual.size()>());
    Powers<kRegion2ReachTau> t;
    t.fill(d, tau);
    const Sums ideal = idealSums<kRegion2Ideal, Wanted>(d, t, std::make_index_sequence<kRegion2Ideal.size()>());
    return combined<Wanted>(d, pi, ideal, residual, logPi);
}

HWY_INLINE Found t2ph(D d, V p, V h, const SearchSettings& s) {
    const V start = t2phEquation(d, p, h);
    if (!s.refining) return {start, start, hn::FirstN(d, 0)};
    V T = clampRegion2(d, start);
    const V limit = hn::Mul(T, lanesOf(d, s.tolerance));  // fixed at the clamped start
    const V pi = hn::Div(p, lanesOf(d, 1e6));
    Powers<kRegion2ReachPi> x;
    x.fill(d, pi);
    const M failed = temperatureSearch<true>(d, T, hn::FirstN(d, hn::Lanes(d)), limit, s.maxIterations, [&](V t) {
        const V tau = hn::Div(lanesOf(d, tvl::region2::kTemperature), t);
        const Sums g = region2SumsAt<kTau | kTauTau>(d, x, pi, tau, hn::Zero(d));
        return hn::Div(hn::Neg(hn::Sub(hn::Mul(lanesOf(d, tvl::region2::kRT), g.gTau), h)), cpOf(d, tau, g.gTauTau));
    });
    if (s.checks) T = clampRegion2(d, T);
    return {T, T, failed};
}

// With toleranceMode off a raw temperature below 273.15 K is still searched for from 273.15 K.
HWY_INLINE Found t2ps(D d, V p, V entropy, const SearchSettings& s) {
    const V start = t2psEquation(d, p, entropy);
    const M searched = s.refining ? hn::FirstN(d, hn::Lanes(d)) : hn::Lt(start, lanesOf(d, kLowestT));
    if (hn::AllFalse(d, searched)) return {start, start, hn::FirstN(d, 0)};
    V T = s.refining ? clampRegion2(d, start) : hn::IfThenElse(searched, lanesOf(d, kLowestT), start);
    const V limit = hn::Mul(T, lanesOf(d, s.tolerance));
    const V pi = hn::Div(p, lanesOf(d, 1e6));
    const V logPi = logarithm(d, pi);
    Powers<kRegion2ReachPi> x;
    x.fill(d, pi);
    const M failed = temperatureSearch<true>(d, T, searched, limit, s.maxIterations, [&](V t) {
        const V tau = hn::Div(lanesOf(d, tvl::region2::kTemperature), t);
        const Sums g = region2SumsAt<kG | kTau | kTauTau>(d, x, pi, tau, logPi);
        const V sNow = hn::Mul(lanesOf(d, R), hn::Sub(hn::Mul(tau, g.gTau), g.g));
        return hn::Div(hn::Mul(hn::Neg(t), hn::Sub(sNow, entropy)), cpOf(d, tau, g.gTauTau));
    });
    if (s.checks) T = hn::IfThenElse(searched, clampRegion2(d, T), T);
    return {T, T, failed};
}

// One Newton step on (p, T) towards h and s (gibbs::stepTowardsEnthalpyEntropy).
struct StepHS {
    V residualH, residualS, dp, dT;
};

HWY_INLINE StepHS stepTowards(D d, const Sums& g, V tau, V T, double pStar, double RTstar, V h, V s) {
    const double k = R / pStar;
    const V residualH = hn::Sub(hn::Mul(lanesOf(d, RTstar), g.gTau), h);
    const V residualS = hn::Sub(hn::Mul(lanesOf(d, R), hn::Sub(hn::Mul(tau, g.gTau), g.g)), s);
    const V dvdT = hn::Mul(lanesOf(d, k), hn::Sub(g.gPi, hn::Mul(tau, g.gPiTau)));
    const V v = hn::Mul(hn::Mul(lanesOf(d, k), g.gPi), T);
    const V dhdp = hn::Sub(v, hn::Mul(T, dvdT));
    const V dsdp = hn::Neg(dvdT);
    const V cp = cpOf(d, tau, g.gTauTau);
    const V det = hn::Sub(hn::Mul(hn::Div(cp, T), dhdp), hn::Mul(cp, dsdp));
    return {residualH, residualS, hn::Div(hn::Sub(hn::Mul(residualS, cp), hn::Div(hn::Mul(residualH, cp), T)), det),
            hn::Div(hn::Sub(hn::Mul(residualH, dsdp), hn::Mul(residualS, dhdp)), det)};
}

constexpr unsigned kStepTerms = kG | kPi | kTau | kTauTau | kPiTau;

// The (h,s) search: the step is taken, then the residuals it came from are tested; the cap is
// passed when the count exceeds maxIterations, and a lane that converges on the cap has failed.
template <class StepAt>
HWY_INLINE M enthalpyEntropySearch(D d, V& p, V& T, V limitH, V limitS, int maxIterations, StepAt stepAt) {
    M active = hn::FirstN(d, hn::Lanes(d));
    M failed = hn::FirstN(d, 0);
    for (int count = 1;; ++count) {
        const StepHS step = stepAt(active, p, T);
        p = hn::IfThenElse(active, hn::Add(p, step.dp), p);
        T = hn::IfThenElse(active, hn::Add(T, step.dT), T);
        if (count > maxIterations) return hn::Or(failed, active);
        const M going = hn::Or(hn::Ge(hn::Abs(step.residualH), limitH), hn::Ge(hn::Abs(step.residualS), limitS));
        if (count >= maxIterations) failed = hn::Or(failed, hn::AndNot(going, active));
        active = hn::And(active, going);
        if (hn::AllFalse(d, active)) return failed;
    }
}

HWY_INLINE Found p1hs(D d, V h, V s, const SearchSettings& settings) {
    V p = p1hsEquation(d, h, s);
    if (!settings.refining) return {p, hn::Set(d, HUGE_VAL), hn::FirstN(d, 0)};
    V T = clampBelow(d, t1phEquation(d, p, h), kLowestT);
    p = hn::IfThenElse(hn::Gt(p, lanesOf(d, tvl::kHighestPressure)), lanesOf(d, tvl::kHighestPressure), p);
    p = clampBelow(d, p, 0.0);
    const double eps = settings.tolerance;
    // The floors are not on the scale of their thresholds, as in the plain search.
    const V limitH = hn::IfThenElse(hn::Gt(hn::Abs(h), lanesOf(d, 10000.0)), hn::Abs(hn::Mul(lanesOf(d, eps), h)),
                                    lanesOf(d, eps * 10000.0));
    const V limitS = hn::IfThenElse(hn::Gt(hn::Abs(s), lanesOf(d, 10.0)), hn::Abs(hn::Mul(lanesOf(d, eps), s)),
                                    lanesOf(d, eps * 10000.0));
    const M failed = enthalpyEntropySearch(d, p, T, limitH, limitS, settings.maxIterations, [&](M, V pNow, V TNow) {
        const Point x = region1<kStepTerms>(d, pNow, TNow);
        return stepTowards(d, x.sums, x.tau, TNow, tvl::kRegion1Pressure, tvl::kRegion1RT, h, s);
    });
    return {p, T, failed};
}

HWY_INLINE Found p2hs(D d, V h, V s, const SearchSettings& settings) {
    V p = p2hsEquation(d, h, s);
    if (!settings.refining) return {p, hn::Set(d, HUGE_VAL), hn::FirstN(d, 0)};
    V T = clampRegion2(d, t2phEquation(d, p, h));
    p = hn::IfThenElse(hn::Gt(p, lanesOf(d, tvl::kHighestPressure)), lanesOf(d, tvl::kHighestPressure), p);
    p = clampBelow(d, p, 0.0);
    const V limitH = hn::Mul(lanesOf(d, settings.tolerance), h);
    const V limitS = hn::Mul(lanesOf(d, settings.tolerance), s);
    const M failed =
        enthalpyEntropySearch(d, p, T, limitH, limitS, settings.maxIterations, [&](M active, V& pNow, V TNow) {
            pNow = hn::IfThenElse(hn::And(active, hn::Lt(pNow, lanesOf(d, tvl::region2::kSmallestPressure))),
                                  lanesOf(d, tvl::region2::kSmallestPressure), pNow);
            const V pi = hn::Div(pNow, lanesOf(d, 1e6));
            const V tau = hn::Div(lanesOf(d, tvl::region2::kTemperature), TNow);
            Powers<kRegion2ReachPi> x;
            x.fill(d, pi);
            const Sums g = region2SumsAt<kStepTerms>(d, x, pi, tau, logarithm(d, pi));
            return stepTowards(d, g, tau, TNow, tvl::region2::kPressure, tvl::region2::kRT, h, s);
        });
    return {p, T, failed};
}

// ---- Region 5: searches from the library's own start fits, in any toleranceMode ----

constexpr double kRegion5HighestT = tvl::kHighestTemperature;

template <unsigned Wanted>
HWY_INLINE Sums region5SumsAt(D d, const Powers<kRegion5ReachPi>& x, V pi, V tau, V logPi) {
    Powers<kRegion5ReachTau> y;
    y.fill(d, tau);
    const Sums residual =
        residualSums<kRegion5Residual, Wanted, false>(d, x, y, std::make_index_sequence<kRegion5Residual.size()>());
    const Sums ideal = idealSums<kRegion5Ideal, Wanted>(d, y, std::make_index_sequence<kRegion5Ideal.size()>());
    return combined<Wanted>(d, pi, ideal, residual, logPi);
}

// The start fits of region5.cpp (startTemperatureFromEnthalpy, startTemperatureFromEntropy).
HWY_INLINE V region5StartFromEnthalpy(D d, V h) {
    return hn::Sub(hn::Mul(lanesOf(d, 0.000369365564435273), h), lanesOf(d, 433.113582272742));
}

// A root just above 2273.15 K, within the stop limit, is taken as 2273.15 K with checks on.
HWY_INLINE V snapToHighest(D d, V T, V limit, bool checks) {
    if (!checks) return T;
    const V highest = lanesOf(d, kRegion5HighestT);
    return hn::IfThenElse(hn::And(hn::Le(hn::Abs(hn::Sub(highest, T)), limit), hn::Gt(T, highest)), highest, T);
}

HWY_INLINE Found t5ph(D d, V p, V h, const SearchSettings& s) {
    const V pi = hn::Div(p, lanesOf(d, 1e6));
    Powers<kRegion5ReachPi> x;
    x.fill(d, pi);
    V T = region5StartFromEnthalpy(d, h);
    const V limit = hn::Mul(T, lanesOf(d, s.tolerance));
    const M failed = temperatureSearch<true>(d, T, hn::FirstN(d, hn::Lanes(d)), limit, s.maxIterations, [&](V t) {
        const V tau = hn::Div(lanesOf(d, 1000.0), t);
        const Sums g = region5SumsAt<kTau | kTauTau>(d, x, pi, tau, hn::Zero(d));
        return hn::Div(hn::Neg(hn::Sub(hn::Mul(lanesOf(d, 461526.0), g.gTau), h)), cpOf(d, tau, g.gTauTau));
    });
    T = snapToHighest(d, T, limit, s.checks);
    return {T, T, failed};
}

HWY_INLINE Found t5ps(D d, V p, V entropy, const SearchSettings& s) {
    const V pi = hn::Div(p, lanesOf(d, 1e6));
    const V logPi = logarithm(d, pi);
    Powers<kRegion5ReachPi> x;
    x.fill(d, pi);
    V T = hn::Sub(hn::Mul(lanesOf(d, 0.603742942732547), entropy), lanesOf(d, 3660.91547095205));
    const V limit = hn::Mul(T, lanesOf(d, s.tolerance));
    const M failed = temperatureSearch<true>(d, T, hn::FirstN(d, hn::Lanes(d)), limit, s.maxIterations, [&](V t) {
        const V tau = hn::Div(lanesOf(d, 1000.0), t);
        const Sums g = region5SumsAt<kG | kTau | kTauTau>(d, x, pi, tau, logPi);
        const V sNow = hn::Mul(lanesOf(d, R), hn::Sub(hn::Mul(tau, g.gTau), g.g));
        return hn::Div(hn::Mul(hn::Neg(hn::Sub(sNow, entropy)), t), cpOf(d, tau, g.gTauTau));
    });
    T = snapToHighest(d, T, limit, s.checks);
    return {T, T, failed};
}

// The start: T from h, p on an ideal-gas isotherm through 611 Pa, exp and log from libm.
HWY_INLINE Found p5hs(D d, V h, V s, const SearchSettings& settings) {
    constexpr double kReferencePressure = 611.0;
    V T = region5StartFromEnthalpy(d, h);
    const V startEntropy = region5Property<kEntropy>(d, lanesOf(d, kReferencePressure), T);
    HWY_ALIGN double lanes[hn::MaxLanes(d)];
    hn::Store(hn::Add(lanesOf(d, std::log(kReferencePressure)),
                      hn::Mul(hn::Sub(startEntropy, s), lanesOf(d, 0.002157661830695))),
              d, lanes);
    for (std::size_t k = 0; k < hn::Lanes(d); ++k) lanes[k] = std::exp(lanes[k]);
    V p = hn::Load(d, lanes);
    if (!settings.refining) return {p, T, hn::FirstN(d, 0)};
    const V limitH = hn::Mul(lanesOf(d, settings.tolerance), h);
    const V limitS = hn::Mul(lanesOf(d, settings.tolerance), s);
    const M failed = enthalpyEntropySearch(d, p, T, limitH, limitS, settings.maxIterations, [&](M, V pNow, V TNow) {
        const Point x = region5<kStepTerms>(d, pNow, TNow);
        return stepTowards(d, x.sums, x.tau, TNow, 1e6, 461526.0, h, s);
    });
    return {p, T, failed};
}

template <int Which>
HWY_INLINE Found searchLanes(D d, V a, V b, const SearchSettings& s) {
    if constexpr (Which == kT1PH) return t1ph(d, a, b, s);
    if constexpr (Which == kT1PS) return t1ps(d, a, b, s);
    if constexpr (Which == kP1HS) return p1hs(d, a, b, s);
    if constexpr (Which == kT2PH) return t2ph(d, a, b, s);
    if constexpr (Which == kT2PS) return t2ps(d, a, b, s);
    if constexpr (Which == kP2HS) return p2hs(d, a, b, s);
    if constexpr (Which == kT5PH) return t5ph(d, a, b, s);
    if constexpr (Which == kT5PS) return t5ps(d, a, b, s);
    if constexpr (Which == kP5HS) return p5hs(d, a, b, s);
}

// Over contiguous arrays; the last partial vector runs on a copy padded with its first point.
template <int Which>
void SearchKernelOf(const double* a, const double* b, double* value, double* temperature, int* failed,
                    std::size_t count, const SearchSettings& settings) {
    const D d;
    const std::size_t N = hn::Lanes(d);
    HWY_ALIGN double aa[hn::MaxLanes(d)], bb[hn::MaxLanes(d)], vv[hn::MaxLanes(d)], tt[hn::MaxLanes(d)];
    for (std::size_t k = 0; k < count; k += N) {
        const std::size_t n = count - k < N ? count - k : N;
        for (std::size_t j = 0; j < N; ++j) {
            aa[j] = a[k + (j < n ? j : 0)];
            bb[j] = b[k + (j < n ? j : 0)];
        }
        const Found found = searchLanes<Which>(d, hn::Load(d, aa), hn::Load(d, bb), settings);
        hn::Store(found.value, d, vv);
        hn::Store(found.temperature, d, tt);
        uint8_t bits[8] = {};
        hn::StoreMaskBits(d, found.failed, bits);
        for (std::size_t j = 0; j < n; ++j) {
            value[k + j] = vv[j];
            temperature[k + j] = tt[j];
            failed[k + j] = (bits[j / 8] >> (j % 8)) & 1;
        }
    }
}
