// A family of fixed-size kernels, described as data, and the writer that
// turns a description into files. A family has
//
//   - members: the exported kernels of one length, each with its name stem,
//     element kind, scale choice per flag and the body it runs;
//   - bodies: per length, the graphs its rules build, each with the layout
//     that maps its slots to array positions (core/layout.h): which
//     positions it reads, where it stores each output, which outputs are
//     stored negated and which positions take a literal zero;
//   - a check of each body against a reference before anything is written.
//
// From that the writer makes, below <dir>/<family dir>/:
//
//   <prefix><n>.h       the bodies of length n (core/emit.h), with their
//                       rule and counts in the head comment
//   kernels_<n>.cpp     the members of length n: checks, scale, body call
//   dispatchers.cpp     one dispatcher per member: range test and jump
//   all_bodies.h        every body header, for the tests
//   manifest.csv        the rule and counts of every body
//
// The kernels include <family dir>/kernel_shell.h from the library's
// sources, which provides Load(src) and Store(dst) for the element types.
#ifndef ZPTG_GEN_CORE_FAMILY_H
#define ZPTG_GEN_CORE_FAMILY_H

#include <functional>
#include <string>
#include <vector>

#include "core/graph.h"
#include "core/layout.h"

namespace zptg::gen {

// One body of one length: emitted as the function <name>_<n>.
struct Body {
    std::string name;
    std::string rule;  // the rule's description, in the header and the manifest
    Graph graph;
    std::vector<Real> outputs;
    Layout layout;
};

struct Member {
    std::string stem;     // zptgDFTFwd_CToC: kernels <stem>_<n>_<kind>, dispatcher <stem>_<kind>
    std::string kind;     // 32fc
    std::string element;  // zptg32fc: the element type of src and dst
    bool single;          // 32-bit scale constants (else 64-bit)
    std::string scaling;  // zptg::Scaling: Forward, Inverse or SelfInverse
    std::string body;     // the name of the body it runs
};

struct Family {
    std::string dir;     // dft_complex: the directory and the namespace zptg::<dir>
    std::string title;   // complex DFT: as the comments name the family
    std::string prefix;  // cdft_: the body headers <prefix><n>.h
    std::string slots;   // the head comment's line on what the slots hold
    int first = 2, last = 64;  // the lengths
    std::vector<Member> members;
    // The bodies of length n, built by the family's rules.
    std::function<std::vector<Body>(int n)> bodies;
    // The largest error of a body of length n against the family's
    // reference, relative to its largest output, and its bound: far below
    // any kernel's rounding, so that a derived constant (a Rader spectrum
    // value, a twiddle) off by a unit of double shows here.
    std::function<long double(const Body&, int n)> error;
    long double tolerance = 1e-17L;
};

// The text of the body header of length n (the bodies already built).
std::string body_header(const Family& f, int n, const std::vector<Body>& bodies,
                        const std::string& command);

// Builds, checks and writes every file of the family below `dir`;
// `command` is the generator's command line, recorded in every file.
void write_family(const Family& f, const std::string& dir, const std::string& command);

}  // namespace zptg::gen

#endif
