// The real DFT and Hartley kernels as a caller sees them, every member,
// length and flag, from one table taken from the public header's family
// lists:
// - values against an exact long double evaluation of the layout's
//   formulas, position by position (so the layout is checked in the same
//   pass); CCS positions 1 and N + 1 hold +0.0 after a forward call and a
//   NaN there changes nothing in an inverse call; nothing is written past
//   the layout;
// - dst == src gives the same bits; round trips under flags 1, 2 and 4;
//   two Hartley transforms under flag 4 give the input back;
// - statuses: null pointers, then the flag; a dispatcher's bad length
//   outranks both, and every good length reaches its kernel.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "dft_real/layouts.h"
#include "support/reference.h"
#include "support/scale.h"
#include "zptgenpx.h"

namespace zptg::test {
namespace {

struct Entry {
    std::string stem;
    std::string kind;
    int n;  // 0: the dispatcher
    void (*fn)();
};

#define ZPTG_ENTRY_KERNEL(stem, kind, type, N) {#stem, #kind, N, reinterpret_cast<void (*)()>(stem##_##N##_##kind)},
#define ZPTG_ENTRY_DISPATCHER(stem, kind, type) {#stem, #kind, 0, reinterpret_cast<void (*)()>(stem##_##kind)},
const Entry kEntries[] = {
    ZPTG_DFT_REAL_FUNCTIONS(ZPTG_ENTRY_KERNEL, ZPTG_ENTRY_DISPATCHER)
    ZPTG_HARTLEY_FUNCTIONS(ZPTG_ENTRY_KERNEL, ZPTG_ENTRY_DISPATCHER)
};

bool has(const std::string& s, const char* part) { return s.find(part) != std::string::npos; }
Shape shape_of(const Entry& e)
{
    return has(e.stem, "CCS") ? Shape::CCS : has(e.stem, "Pack") ? Shape::Pack
         : has(e.stem, "Perm") ? Shape::Perm : Shape::Hartley;
}
bool inverse(const Entry& e) { return has(e.stem, "Inv"); }
std::string name(const Entry& e)
{
    std::string s = e.stem;
    if (e.n != 0) s.append("_").append(std::to_string(e.n));
    return s.append("_").append(e.kind);
}

long double cos2pi(long long a, int n) { return cos_pi(2 * a, n); }
long double sin2pi(long long a, int n) { return sin_pi(2 * a, n); }

// The factor of a flag: 1/N for the direction it names (both for Hartley).
long double factor(const Entry& e, int flag)
{
    const Direction d = shape_of(e) == Shape::Hartley ? Direction::SelfInverse : inverse(e) ? Direction::Inverse : Direction::Forward;
    return scale_factor<long double>(d, flag, e.n);
}

// The exact outputs of a kernel for input `in` (NaN where the input
// position carries nothing), unscaled.
std::vector<long double> exact(const Entry& e, const std::vector<long double>& in)
{
    const int n = e.n;
    const Shape s = shape_of(e);
    std::vector<long double> out;
    if (s == Shape::Hartley) {
        for (int k = 0; k < n; ++k) {
            long double sum = 0;
            for (int j = 0; j < n; ++j) sum += in[j] * (cos2pi((long long)j * k, n) + sin2pi((long long)j * k, n));
            out.push_back(sum);
        }
    } else if (!inverse(e)) {
        out.assign(packed_size(s, n), 0.0L);
        for (int k = 0; 2 * k <= n; ++k) {
            long double re = 0, im = 0;
            for (int j = 0; j < n; ++j) {
                re += in[j] * cos2pi((long long)j * k, n);
                im -= in[j] * sin2pi((long long)j * k, n);
            }
            out[position(s, n, k, false)] = re;
            if (position(s, n, k, true) >= 0) out[position(s, n, k, true)] = im;
        }
    } else {
        for (int j = 0; j < n; ++j) {
            long double sum = 0;
            for (int k = 0; 2 * k <= n; ++k) {
                const long double w = (k == 0 || 2 * k == n) ? 1 : 2;
                const int pi = position(s, n, k, true);
                sum += w * in[position(s, n, k, false)] * cos2pi((long long)j * k, n);
                if (pi >= 0) sum -= w * in[pi] * sin2pi((long long)j * k, n);
            }
            out.push_back(sum);
        }
    }
    return out;
}

template <class E>
zptgStatus run(const Entry& e, const E* src, E* dst, int flag)
{
    return reinterpret_cast<zptgStatus (*)(const E*, E*, int)>(e.fn)(src, dst, flag);
}

template <class E>
std::vector<E> random_input(const Entry& e, unsigned seed)
{
    const Reals r = random_values(inverse(e) ? packed_size(shape_of(e), e.n) : e.n, seed);
    std::vector<E> v(r.begin(), r.end());
    if (inverse(e) && shape_of(e) == Shape::CCS) v[1] = v[e.n % 2 ? 1 : e.n + 1] = E(NAN);
    return v;
}

// The output array of a call: the layout's size plus one guard element,
// all bytes 0xFF (NaN), so an unwritten position or a write past the end
// shows.
int out_size(const Entry& e)
{
    return inverse(e) || shape_of(e) == Shape::Hartley ? e.n : packed_size(shape_of(e), e.n);
}

bool same_bits(const void* a, const void* b, size_t bytes) { return std::memcmp(a, b, bytes) == 0; }

template <class E>
void check_kernel(const Entry& e)
{
    const long double tol = sizeof(E) == 4 ? 3e-7L : 2e-15L;
    for (int flag : kFlags) {
        const std::vector<E> in = random_input<E>(e, unsigned(e.n * 31 + flag));
        std::vector<long double> exact_in(in.begin(), in.end());
        const std::vector<long double> want = exact(e, exact_in);
        const int m = out_size(e);
        std::vector<E> out(m + 1);
        std::memset(static_cast<void*>(out.data()), 0xFF, out.size() * sizeof(E));
        const E guard = out[m];
        ASSERT_EQ(run(e, in.data(), out.data(), flag), zptgStatusOk) << name(e);
        EXPECT_TRUE(same_bits(&out[m], &guard, sizeof(E))) << name(e) << " wrote past its layout";
        long double largest = 0, worst = 0;
        for (int i = 0; i < m; ++i) largest = std::max(largest, std::fabs(want[i] * factor(e, flag)));
        for (int i = 0; i < m; ++i) {
            const long double d = std::fabs(out[i] - want[i] * factor(e, flag));
            if (!(d <= worst)) worst = d;  // NaN sticks
        }
        EXPECT_LE(worst, tol * largest) << name(e) << " flag " << flag;
        if (shape_of(e) == Shape::CCS && !inverse(e)) {
            for (int p : {1, e.n + 1}) {
                if (p < m) {
                    EXPECT_TRUE(out[p] == 0 && !std::signbit(out[p])) << name(e) << " position " << p;
                }
            }
        }
        // In place: the same bits.
        std::vector<E> inplace(std::max<size_t>(in.size(), m));
        std::copy(in.begin(), in.end(), inplace.begin());
        ASSERT_EQ(run(e, inplace.data(), inplace.data(), flag), zptgStatusOk);
        EXPECT_TRUE(same_bits(inplace.data(), out.data(), m * sizeof(E))) << name(e) << " in place, flag " << flag;
    }
}

// The entry of the same kind and length whose stem is `stem`.
const Entry& find(const std::string& stem, const std::string& kind, int n)
{
    for (const Entry& e : kEntries)
        if (e.stem == stem && e.kind == kind && e.n == n) return e;
    throw std::runtime_error("no " + stem);
}

template <class E>
void check_round_trip(const Entry& fwd, const Entry& inv, std::vector<int> flags)
{
    const long double tol = sizeof(E) == 4 ? 2e-6L : 1e-14L;
    for (int flag : flags) {
        const std::vector<E> x = random_input<E>(fwd, unsigned(fwd.n + 7));
        std::vector<E> mid(packed_size(shape_of(fwd), fwd.n)), back(fwd.n);
        ASSERT_EQ(run(fwd, x.data(), mid.data(), flag), zptgStatusOk);
        ASSERT_EQ(run(inv, mid.data(), back.data(), flag), zptgStatusOk);
        for (int i = 0; i < fwd.n; ++i)
            EXPECT_NEAR(double(back[i]), double(x[i]), double(tol)) << name(fwd) << " and back, flag " << flag << " at " << i;
    }
}

template <class F>
void for_each_kernel(F&& f)
{
    for (const Entry& e : kEntries)
        if (e.n != 0) {
            if (e.kind == "32f") f.template operator()<float>(e);
            else f.template operator()<double>(e);
        }
}

TEST(RealAndHartleyKernels, ExactValuesInTheirLayoutsInPlaceAndGuarded)
{
    for_each_kernel([]<class E>(const Entry& e) { check_kernel<E>(e); });
}

TEST(RealAndHartleyKernels, RoundTrips)
{
    for_each_kernel([]<class E>(const Entry& e) {
        if (shape_of(e) == Shape::Hartley) return check_round_trip<E>(e, e, {zptgScaleBySqrtN});
        if (inverse(e)) return;
        std::string back = e.stem;
        back = "zptgDFTInv_" + back.substr(std::string("zptgDFTFwd_RTo").size()) + "ToR";
        check_round_trip<E>(e, find(back, e.kind, e.n), {zptgScaleFwdByN, zptgScaleInvByN, zptgScaleBySqrtN});
    });
}

// The sign of the kernels: an impulse at x[1] gives Im X[1] = -sin(2 pi/N)
// and H[1] = cos + sin (2 pi/N).
TEST(RealAndHartleyKernels, ImpulseShowsTheSign)
{
    for (int n = 3; n <= 64; ++n) {
        std::vector<double> x(n + 2, 0.0), out(n + 2);
        x[1] = 1;
        ASSERT_EQ(zptgDFTFwd_RToCCS_64f(x.data(), out.data(), n, zptgScaleNone), zptgStatusOk);
        EXPECT_NEAR(out[3], -std::sin(2 * M_PI / n), 1e-15) << n;
        ASSERT_EQ(zptgHartley_64f(x.data(), out.data(), n, zptgScaleNone), zptgStatusOk);
        EXPECT_NEAR(out[1], std::cos(2 * M_PI / n) + std::sin(2 * M_PI / n), 1e-15) << n;
    }
}

constexpr int kBadLengths[] = {1, 0, -1, 65, INT_MAX, INT_MIN};

template <class E>
void check_statuses(const Entry& e)
{
    std::vector<E> in(2 * 64 + 2, E(1)), out(2 * 64 + 2);
    std::memset(static_cast<void*>(out.data()), 0xA5, out.size() * sizeof(E));
    const std::vector<E> untouched = out;
    if (e.n != 0) {
        for (int flag : {1, 3})
            for (bool null_src : {false, true})
                EXPECT_EQ(run(e, null_src ? nullptr : in.data(), null_src ? out.data() : nullptr, flag),
                          zptgStatusNullPtr) << name(e);
        for (int flag : kBadFlags) EXPECT_EQ(run(e, in.data(), out.data(), flag), zptgStatusBadFlag) << name(e);
    } else {
        using D = zptgStatus (*)(const E*, E*, int, int);
        const D d = reinterpret_cast<D>(e.fn);
        for (int len : kBadLengths)
            for (int flag : {1, 3}) {
                EXPECT_EQ(d(nullptr, out.data(), len, flag), zptgStatusBadSize) << name(e);
                EXPECT_EQ(d(in.data(), out.data(), len, flag), zptgStatusBadSize) << name(e);
            }
        for (int n = 2; n <= 64; ++n) {
            EXPECT_EQ(d(nullptr, out.data(), n, 1), zptgStatusNullPtr) << name(e) << " " << n;
            EXPECT_EQ(d(in.data(), out.data(), n, 3), zptgStatusBadFlag) << name(e) << " " << n;
            std::vector<E> a(2 * 64 + 2), b(2 * 64 + 2);
            EXPECT_EQ(d(in.data(), a.data(), n, zptgScaleBySqrtN), zptgStatusOk);
            EXPECT_EQ(run(find(e.stem, e.kind, n), in.data(), b.data(), zptgScaleBySqrtN), zptgStatusOk);
            EXPECT_TRUE(same_bits(a.data(), b.data(), a.size() * sizeof(E))) << name(e) << " length " << n;
        }
    }
    EXPECT_TRUE(same_bits(out.data(), untouched.data(), out.size() * sizeof(E))) << name(e) << " wrote on a failure";
}

TEST(RealAndHartleyKernels, Statuses)
{
    EXPECT_EQ(std::size(kEntries), size_t(14 * 64));
    for (const Entry& e : kEntries) {
        if (e.kind == "32f") check_statuses<float>(e);
        else check_statuses<double>(e);
    }
}

}  // namespace
}  // namespace zptg::test
