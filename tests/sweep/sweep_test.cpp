// Every kernel and dispatcher that the library exports (read from its export list, so a new family
// is swept as soon as it is exported), at every size and flag:
//  - every kernel against the exact long double transform of its layout: an impulse gives the
//    scale constants bit for bit; a kernel in 32 bits computes in double and rounds once, so each
//    value is the float nearest the exact one (or a neighbour within 2^-44 max|X| of a midpoint);
//    in 64 bits max|Y - X| <= (1 + log2 N) eps max|X|; a Walsh-Hadamard kernel computes in its
//    own width (and where the arithmetic rounds to it, gives the bits of the plain network).
//    Flags differ by the final product only: the same bits where the factors agree, and within
//    two units of the factor times the value of flag 8 everywhere. All-NaN input gives NaN in every
//    computed output, infinite input no finite output, and a literal zero is +0.0;
//  - a call that must fail (bad size, null pointer, bad flag) returns its status with its pointers
//    aimed at an inaccessible page: it may neither read nor write a single element;
//  - src and dst at exactly the layout's size against an inaccessible page at either end, dst ==
//    src, and dst overlapping src by every number of values either way: no fault, and dst holds
//    bit for bit what the named kernel gives on separate arrays (a separate src is left as it was);
#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "support/export_list.h"
#include "support/guarded.h"
#include "support/reference.h"

namespace zptg::test {
namespace {

using Bytes = std::vector<unsigned char>;
constexpr std::size_t kRoom = 3 * 8192 * 8;  // the largest arrays and overlaps (Walsh order 13, 64f)

struct Library {
    std::vector<Transform> transforms;
    std::vector<std::string> unknown;
    std::map<std::tuple<std::string, unsigned, int>, const Transform*> kernels;
};

const Library& library()
{
    static const Library lib = [] {
        Library l;
        l.transforms = exported_transforms(&l.unknown);
        for (const Transform& t : l.transforms)
            if (!t.dispatcher()) l.kernels[{t.stem, t.width, t.size}] = &t;
        return l;
    }();
    return lib;
}

// The exact transform of src's values x, in dst's positions, unscaled.
Reals exact(const Transform& t, const Reals& x)
{
    const int n = t.length(t.size);
    if (t.layout == Layout::Walsh) return wht_network(x);
    const bool complex = t.layout == Layout::Complex, spectrum = t.direction == Direction::Inverse && !complex;
    std::vector<cld> in(n);
    for (int k = 0; k < n; ++k) {
        if (complex) in[k] = {x[2 * k], x[2 * k + 1]};
        else if (!spectrum) in[k] = x[k];
        else if (2 * k > n) in[k] = std::conj(in[n - k]);
        else {
            const int im = packed_position(t.layout, n, k, true);
            in[k] = {x[packed_position(t.layout, n, k, false)], im < 0 ? 0 : x[im]};
        }
    }
    const std::vector<cld> X = exact_dft(in, t.direction == Direction::Inverse ? 1 : -1);
    Reals y(t.dst_values(t.size), 0);
    for (int k = 0; k < n; ++k) {
        if (complex) std::tie(y[2 * k], y[2 * k + 1]) = std::make_tuple(X[k].real(), X[k].imag());
        else if (t.layout == Layout::Hartley) y[k] = X[k].real() - X[k].imag();
        else if (spectrum) y[k] = X[k].real();
        else if (2 * k <= n) {
            y[packed_position(t.layout, n, k, false)] = X[k].real();
            if (const int im = packed_position(t.layout, n, k, true); im >= 0) y[im] = X[k].imag();
        }
    }
    return y;
}

// An impulse at position 0, two pseudo-random inputs, all NaN and all infinite, under every flag.
template <class R>
void check_exact(const Transform& t)
{
    const int n = t.length(t.size), m = t.dst_values(t.size);
    const long double eps = std::numeric_limits<R>::epsilon();
    for (int input = 0; input < 5; ++input) {
        Reals x = random_values(t.src_values(t.size), 1000u * t.size + unsigned(input));
        if (input == 0) std::fill(x.begin(), x.end(), 0.0L), x[0] = 1;
        std::vector<R> src(x.begin(), x.end()), y[4];
        for (size_t i = 0; input > 2 && i < src.size(); ++i)
            src[i] = input == 3 ? R(NAN) : i % 3 ? R(INFINITY) : -R(INFINITY);
        if (t.layout == Layout::FromCcs) src[1] = NAN;  // Im X[0], never read
        for (int f = 0; f < 4; ++f) {
            y[f].assign(m, R(NAN));
            EXPECT_EQ(t.call(src.data(), y[f].data(), 0, kFlags[f], nullptr), zptgStatusOk) << t.name;
            for (int p = 0; input > 2 && p < m; ++p)
                EXPECT_TRUE(t.literal_zero(t.size, p) ? y[f][p] == 0 && !std::signbit(y[f][p])
                                                      : input == 3 ? std::isnan(y[f][p]) : !std::isfinite(y[f][p]))
                    << t.name << " flag " << kFlags[f] << (input == 3 ? " NaN" : " infinite") << " input, position " << p;
        }
        if (input > 2) continue;
        const Reals unscaled = exact(t, x);
        long double sum = 0;
        for (long double v : x) sum += std::fabs(v);
        for (int f = 0; f < 4; ++f) {
            const std::string what = t.name + " flag " + std::to_string(kFlags[f]) + " input " + std::to_string(input);
            const R factor = scale_factor<R>(t.direction, kFlags[f], n);
            const long double s = t.layout == Layout::Walsh ? scale_factor<long double>(t.direction, kFlags[f], n) : factor;
            long double largest = 0, error = 0;
            for (long double v : unscaled) largest = std::max(largest, std::fabs(v * s));
            std::string fault;
            for (int p = 0; p < m && fault.empty(); ++p) {
                const long double want = unscaled[p] * (input == 0 ? factor : s);
                const long double margin = input == 0 ? 0 : 0x1p-44L * largest;
                const R got = y[f][p];
                if (!(std::fabs(got - want) <= error)) error = std::fabs(got - want);  // NaN sticks
                if ((input == 0 || (sizeof(R) == 4 && t.layout != Layout::Walsh)) &&
                    !(got >= rounded<R>(want - margin) && got <= rounded<R>(want + margin)))
                    fault = "position " + std::to_string(p) + " is not the nearest value to the exact one";
                const long double product = (long double)factor * y[3][p];
                const R size = std::max(R(std::fabs(product)), std::numeric_limits<R>::min());
                if (std::fabs(got - product) > 2 * (std::nextafter(size, R(INFINITY)) - size))
                    fault = "position " + std::to_string(p) + " is not the factor times the value of flag 8";
            }
            EXPECT_EQ(fault, "") << what;
            for (int e = 0; e < f; ++e)
                EXPECT_TRUE(scale_factor<R>(t.direction, kFlags[e], n) != factor || same_bits(y[e], y[f]))
                    << what << ": not the bits of flag " << kFlags[e];
            const long double bound = t.layout == Layout::Walsh ? 1.01L * (t.size + 4) * eps / 2 * s * sum
                                    : (sizeof(R) == 4 ? 0.75L : 1 + std::log2((long double)n)) * eps * largest;
            EXPECT_LE(error, bound) << what;
#if FLT_EVAL_METHOD == 0
            if (t.layout == Layout::Walsh) {
                std::vector<R> plain = wht_network(src);
                for (R& v : plain) v = v * factor;
                EXPECT_TRUE(same_bits(plain, y[f])) << what << ": not the plain network";
            }
#endif
        }
    }
}

TEST(Kernels, ExactValuesUnderEveryFlag)
{
    for (const auto& [key, t] : library().kernels) {
        if (t->width == 4) check_exact<float>(*t);
        else check_exact<double>(*t);
    }
}

// One function at one size (a kernel at its own, a dispatcher at each) and the kernel of the size.
struct Case {
    const Transform* t;
    int size;
    const Transform* kernel;
    std::size_t src_bytes, dst_bytes, buffer_bytes;
    std::string name() const { return t->name + " size " + std::to_string(size); }
};

std::vector<Case> every_case()
{
    const Library& lib = library();
    EXPECT_TRUE(lib.unknown.empty()) << "exported, but of no known family: " << lib.unknown.front();
    std::vector<Case> cases;
    for (const Transform& t : lib.transforms)
        for (int size = t.dispatcher() ? t.min_size() : t.size; size <= (t.dispatcher() ? t.max_size() : t.size); ++size) {
            const auto k = lib.kernels.find({t.stem, t.width, size});
            if (k == lib.kernels.end()) {
                ADD_FAILURE() << t.name << " has no kernel of size " << size;
                continue;
            }
            int buffer = 0;
            if (t.takes_buffer(size)) (t.width == 4 ? zptgWHTGetBufferSize_32f : zptgWHTGetBufferSize_64f)(size, &buffer);
            cases.push_back({&t, size, k->second, std::size_t(t.src_values(size)) * t.width,
                             std::size_t(t.dst_values(size)) * t.width, std::size_t(buffer)});
        }
    return cases;
}

// Finite values in [-1, 1), with a NaN, an infinity of either sign, a denormal or a negative zero
// at every seventh position.
template <class T>
void fill(T* v, std::size_t count, unsigned seed)
{
    const T special[] = {std::numeric_limits<T>::quiet_NaN(), std::numeric_limits<T>::infinity(),
                         -std::numeric_limits<T>::infinity(), std::numeric_limits<T>::denorm_min(), T(-0.0)};
    unsigned x = seed * 2654435761u + 1u;
    for (std::size_t i = 0; i < count; ++i) {
        x = x * 1664525u + 1013904223u;
        v[i] = (i + seed) % 7 == 3 ? special[(x >> 8) % 5] : T(int(x >> 8) - (1 << 23)) / T(1 << 23);
    }
}

// An array of n bytes against an inaccessible page: at the start of a block (Before) or at its end
// (After), one block for each of src (0), dst (1) and scratch (2) and each side.
unsigned char* guarded(int array, Guard side, std::size_t n)
{
    static std::unique_ptr<GuardedBlock> blocks[3][2];
    std::unique_ptr<GuardedBlock>& b = blocks[array][side == Guard::Before];
    if (!b) b = std::make_unique<GuardedBlock>(kRoom, side);
    return b->data() + (side == Guard::After ? kRoom - n : 0);
}

TEST(GuardSweep, FailedChecksTouchNothing)
{
    static const GuardedBlock no_bytes(0);
    void* none = no_bytes.data();
    std::vector<int> bad_flags = {INT_MIN, INT_MAX};
    for (int f = -64; f <= 64; ++f)
        if (f != 1 && f != 2 && f != 4 && f != 8) bad_flags.push_back(f);
    for (const Case& c : every_case()) {
        const Transform& t = *c.t;
        for (int flag : {1, 3}) {
            EXPECT_EQ(t.call(nullptr, none, c.size, flag, none), zptgStatusNullPtr) << c.name();
            EXPECT_EQ(t.call(none, nullptr, c.size, flag, none), zptgStatusNullPtr) << c.name();
            EXPECT_EQ(t.call(nullptr, nullptr, c.size, flag, none), zptgStatusNullPtr) << c.name();
        }
        for (int flag : bad_flags)
            EXPECT_EQ(t.call(none, none, c.size, flag, none), zptgStatusBadFlag) << c.name() << " flag " << flag;
        if (!t.dispatcher() || c.size != t.min_size()) continue;
        for (int size : {t.min_size() - 1, t.min_size() - 2, -1, t.max_size() + 1, t.max_size() + 2, INT_MAX, INT_MIN}) {
            EXPECT_EQ(t.call(none, none, size, 1, none), zptgStatusBadSize) << t.name << " " << size;
            EXPECT_EQ(t.call(nullptr, nullptr, size, 3, nullptr), zptgStatusBadSize) << t.name << " " << size;
        }
    }
}

// Runs `c` with src and dst at the given places, input copied in first, and compares dst with want.
void run_placed(const Case& c, unsigned char* src, unsigned char* dst, unsigned char* buffer, const Bytes& input,
                int flag, const Bytes& want, const std::string& where)
{
    std::memcpy(src, input.data(), input.size());
    ASSERT_EQ(c.t->call(src, dst, c.size, flag, buffer), zptgStatusOk) << c.name() << where;
    ASSERT_EQ(std::memcmp(dst, want.data(), want.size()), 0)
        << c.name() << " flag " << flag << where << ": dst differs from separate arrays";
}

// Overlaps by k values of arrays of n: every k for a kernel of up to 64 points (each k puts other
// outputs over unread inputs), 1 to 8 and every eighth of the array for the longer ones; a
// dispatcher hands its pointers on unchanged, so 1, n / 2 and n - 1.
std::vector<std::size_t> overlaps(const Case& c, std::size_t n)
{
    if (c.t->dispatcher()) return {1, n / 2, n - 1};
    std::vector<std::size_t> k;
    for (std::size_t i = 1; i + 1 < n; i += n <= 130 || i < 8 ? 1 : n / 8) k.push_back(i);
    k.push_back(n - 1);
    return k;
}

TEST(GuardSweep, PlacementsAndOverlapsGiveTheSeparateResult)
{
    unsigned seed = 0;
    for (const Case& c : every_case()) {
        Bytes input(c.src_bytes), want[4];
        if (c.t->width == 4) fill(reinterpret_cast<float*>(input.data()), input.size() / 4, ++seed);
        else fill(reinterpret_cast<double*>(input.data()), input.size() / 8, ++seed);
        for (int f = 0; f < 4; ++f) {
            Bytes src = input, buffer(c.buffer_bytes);
            want[f].assign(c.dst_bytes, 0x5a);
            EXPECT_EQ(c.kernel->call(src.data(), want[f].data(), c.size, kFlags[f], buffer.data()), zptgStatusOk) << c.name();
        }
        const std::size_t w = c.t->width, in_place = std::max(c.src_bytes, c.dst_bytes);
        for (int f = 0; f < 4; ++f)
            for (Guard side : {Guard::After, Guard::Before}) {
                const std::string at = side == Guard::After ? " against the end" : " against the start";
                unsigned char *src = guarded(0, side, c.src_bytes), *scratch = guarded(2, side, c.buffer_bytes);
                run_placed(c, src, guarded(1, side, c.dst_bytes), scratch, input, kFlags[f], want[f], at);
                ASSERT_EQ(std::memcmp(src, input.data(), c.src_bytes), 0) << c.name() << at << ": src changed";
                unsigned char* both = guarded(1, side, in_place);
                run_placed(c, both, both, f % 2 ? scratch : nullptr, input, kFlags[f], want[f], at + ", dst == src");
            }
        // dst k values above or below src, the pair against either guard, the flags in turn; Walsh
        // scratch of its own or none in turn.
        for (std::size_t k : overlaps(c, in_place / w)) {
            const Guard side = k % 2 ? Guard::After : Guard::Before;
            unsigned char* buffer = k % 3 ? guarded(2, side, c.buffer_bytes) : nullptr;
            const std::string by = " dst " + std::to_string(k) + " values ";
            unsigned char* span = guarded(1, side, std::max(c.src_bytes, k * w + c.dst_bytes));
            run_placed(c, span, span + k * w, buffer, input, kFlags[k % 4], want[k % 4], by + "above src");
            span = guarded(1, side, std::max(c.dst_bytes, k * w + c.src_bytes));
            run_placed(c, span + k * w, span, buffer, input, kFlags[k % 4], want[k % 4], by + "below src");
        }
    }
}

}  // namespace
}  // namespace zptg::test
