// The binary interface of the built shared object: its soname, what it
// needs, exactly which names it exports, and that it carries no writable
// data or constructors of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "frame/elf_file.h"
#include "zptgenpx.h"

namespace {

using zptg::test::ElfFile;

constexpr unsigned kSttFunc = 2;
constexpr unsigned kStbLocal = 0;

// Every name that the families declare in the public header.
#define ZPTG_NAME_KERNEL(stem, kind, type, N) #stem "_" #N "_" #kind,
#define ZPTG_NAME_DISPATCHER(stem, kind, type) #stem "_" #kind,
#define ZPTG_NAME_WHT_KERNEL(kind, type, order) "zptgWHT_" #order "_" #kind,
#define ZPTG_NAME_WHT_DISPATCHER(kind, type) "zptgWHT_" #kind,
#define ZPTG_NAME_WHT_BUFFER_SIZE(kind) "zptgWHTGetBufferSize_" #kind,
#define ZPTG_NAME_DCT4(kind, type, context)                                          \
    "zptgDCT4GetSize_" #kind, "zptgDCT4Init_" #kind, "zptgDCT4InitAlloc_" #kind,   \
        "zptgDCT4_" #kind, "zptgDCT4Free_" #kind,
const char* const kDeclaredNames[] = {
    "zptgenGetLibVersion",
    ZPTG_DFT_COMPLEX_FUNCTIONS(ZPTG_NAME_KERNEL, ZPTG_NAME_DISPATCHER)
    ZPTG_DFT_REAL_FUNCTIONS(ZPTG_NAME_KERNEL, ZPTG_NAME_DISPATCHER)
    ZPTG_HARTLEY_FUNCTIONS(ZPTG_NAME_KERNEL, ZPTG_NAME_DISPATCHER)
    ZPTG_WHT_FUNCTIONS(ZPTG_NAME_WHT_KERNEL, ZPTG_NAME_WHT_KERNEL, ZPTG_NAME_WHT_DISPATCHER,
                       ZPTG_NAME_WHT_BUFFER_SIZE)
    ZPTG_DCT4_FUNCTIONS(ZPTG_NAME_DCT4)
};

class SharedObject : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        std::string error;
        loaded_ = elf_.load(ZPTG_LIBRARY_FILE, &error);
        error_ = error;
    }
    void SetUp() override { ASSERT_TRUE(loaded_) << error_; }
    static ElfFile elf_;
    static bool loaded_;
    static std::string error_;
};
ElfFile SharedObject::elf_;
bool SharedObject::loaded_ = false;
std::string SharedObject::error_;

TEST_F(SharedObject, IsNamedBySoname)
{
    EXPECT_EQ(elf_.soname, "libzptgenpx.so.6.1");
    EXPECT_EQ(elf_.is64, sizeof(void*) == 8);
}

TEST_F(SharedObject, NeedsOnlyCoreMathAndC)
{
#ifdef ZPTG_SANITIZED
    GTEST_SKIP() << "instrumented build: the sanitizer runtime brings its own";
#endif
    const std::set<std::string> allowed = {"libzptcore.so.6.1", "libm.so.6", "libc.so.6"};
    for (const std::string& lib : elf_.needed) EXPECT_TRUE(allowed.count(lib)) << lib;
    EXPECT_NE(std::find(elf_.needed.begin(), elf_.needed.end(), "libzptcore.so.6.1"),
              elf_.needed.end());
}

TEST_F(SharedObject, ExportsExactlyTheDeclaredFunctions)
{
    const std::set<std::string> declared(std::begin(kDeclaredNames), std::end(kDeclaredNames));
    ASSERT_EQ(declared.size(), std::size(kDeclaredNames)) << "a name is declared twice";
    // version, complex DFT (4 x 63 + 4), real DFT (12 x 63 + 12), Hartley
    // (2 x 63 + 2), Walsh-Hadamard (2 x 15), DCT-IV (2 x 5): 1,193
    EXPECT_EQ(declared.size(), 1u + 256u + 768u + 128u + 30u + 10u);
    std::set<std::string> exported;
    for (const auto& s : elf_.dynamic_symbols) {
        if (s.section == 0 || s.binding == kStbLocal || s.name.empty()) continue;
        exported.insert(s.name);
        EXPECT_TRUE(declared.count(s.name)) << "exported but not declared: " << s.name;
        EXPECT_EQ(s.type, kSttFunc) << s.name << " is not a function";
    }
    for (const std::string& name : declared)
        EXPECT_TRUE(exported.count(name)) << "declared but not exported: " << name;
}

TEST_F(SharedObject, HasNoWritableDataOrConstructorsOfItsOwn)
{
#ifdef ZPTG_SANITIZED
    GTEST_SKIP() << "instrumented build: the sanitizer runtime brings its own";
#endif
    for (const char* name : {".data", ".bss", ".tdata", ".tbss", ".init_array", ".fini_array",
                             ".ctors", ".dtors"}) {
        const auto* s = elf_.section(name);
        if (s != nullptr) {
            EXPECT_EQ(s->size, 0u) << name;
        }
    }
}

}  // namespace
