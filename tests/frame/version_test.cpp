// The version record: one constant record, fields in order and value.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

#include "zptgenpx.h"

namespace {

TEST(Version, RecordHasTheLibrarysValues)
{
    const zptgLibVersion* v = zptgenGetLibVersion();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v->versionMajor, 6);
    EXPECT_EQ(v->versionMinor, 1);
    EXPECT_EQ(v->versionBuild, 137);
    EXPECT_EQ(v->versionRevision, 336);
    EXPECT_EQ(std::memcmp(v->targetText, "px\0\0", 4), 0);
    EXPECT_STREQ(v->libraryName, "libzptgenpx.so.6.1");
    EXPECT_STREQ(v->versionText, "6.1 build 137.56");
    EXPECT_STREQ(v->buildDateText, "Mar 17 2010");
    EXPECT_EQ(zptgenGetLibVersion(), v) << "the same record at every call";
}

TEST(Version, FieldsAreInTheirOrderAndWidth)
{
    EXPECT_EQ(sizeof(int), 4u);
    EXPECT_EQ(offsetof(zptgLibVersion, versionMajor), 0u);
    EXPECT_EQ(offsetof(zptgLibVersion, versionMinor), 4u);
    EXPECT_EQ(offsetof(zptgLibVersion, versionBuild), 8u);
    EXPECT_EQ(offsetof(zptgLibVersion, versionRevision), 12u);
    EXPECT_EQ(offsetof(zptgLibVersion, targetText), 16u);
    // The text pointers follow the four text bytes, at their natural alignment.
    EXPECT_EQ(offsetof(zptgLibVersion, libraryName), sizeof(void*) == 4 ? 20u : 24u);
    EXPECT_LT(offsetof(zptgLibVersion, libraryName), offsetof(zptgLibVersion, versionText));
    EXPECT_LT(offsetof(zptgLibVersion, versionText), offsetof(zptgLibVersion, buildDateText));
}

}  // namespace
