// SPDX-License-Identifier: Apache-2.0
#include <camera/VendorTagDescriptor.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>

#include "support/Log.h"
#include "support/VendorTags.h"

using android::BAD_VALUE;
using android::OK;
using android::sp;
using android::String8;
using android::VendorTagDescriptor;
using qz::test::VendorTagOps;

namespace {

TEST(VendorTagDescriptor, CreationRefusesBrokenTables) {
    const VendorTagOps sound({{0x80000000, "s", "n", TYPE_BYTE}});
    sp<VendorTagDescriptor> descriptor;
    ASSERT_EQ(VendorTagDescriptor::createDescriptorFromOps(&sound, descriptor), OK);
    const sp<VendorTagDescriptor> before = descriptor;
    const auto expectRefused = [&](const vendor_tag_ops_t* ops, const char* why) {
        qz::test::LogCapture log;
        EXPECT_EQ(VendorTagDescriptor::createDescriptorFromOps(ops, descriptor), BAD_VALUE) << why;
        EXPECT_EQ(descriptor, before) << why;
        EXPECT_EQ(log.takeErrors(), (std::vector<std::string>{"VendorTagDescriptor"})) << why;
    };
    expectRefused(nullptr, "no operations");
    VendorTagOps broken = sound;
    broken.get_all_tags = [](const vendor_tag_ops_t* /*ops*/, uint32_t* /*tags*/) { FAIL() << "asked"; };
    broken.get_tag_count = [](const vendor_tag_ops_t* /*ops*/) { return -1; };
    expectRefused(&broken, "negative count");
    broken.get_tag_count = [](const vendor_tag_ops_t* /*ops*/) { return 65537; };
    expectRefused(&broken, "count above the limit");
    VendorTagOps partial = sound;
    partial.get_tag_type = nullptr;
    expectRefused(&partial, "a function is missing");
    const std::vector<std::pair<qz::test::VendorTag, const char*>> kBroken = {
        {{0x7fffffff, "s", "n", TYPE_BYTE}, "not a vendor tag"},
        {{0x80000001, nullptr, "n", TYPE_BYTE}, "no section"},
        {{0x80000001, "s", nullptr, TYPE_BYTE}, "no name"},
        {{0x80000001, "s", "n", NUM_TYPES}, "type too high"},
        {{0x80000001, "s", "n", -1}, "type too low"},
    };
    for (const auto& [row, why] : kBroken) {
        const VendorTagOps ops({sound.tags.front(), row});
        expectRefused(&ops, why);
    }
}

TEST(VendorTagDescriptor, FindsTagsBothWays) {
    sp<VendorTagDescriptor> descriptor;
    {
        const VendorTagOps ops({{0x80010001, "b.section", "zoom", TYPE_FLOAT},
                                {0x80000007, "a.section", "zoom", TYPE_INT32},
                                {0x80010000, "b.section", "iso", TYPE_RATIONAL},
                                {0x80010001, "b.section", "zoom", TYPE_FLOAT},
                                {0xffffffff, "a.section", "zoom", TYPE_BYTE},
                                {0x80000008, "a.section", "zoom", TYPE_BYTE}});
        ASSERT_EQ(VendorTagDescriptor::createDescriptorFromOps(&ops, descriptor), OK);
    }
    std::vector<uint32_t> tags(static_cast<size_t>(descriptor->getTagCount()));
    descriptor->getTagArray(tags.data());
    EXPECT_EQ(tags, (std::vector<uint32_t>{0x80000007, 0x80000008, 0x80010000, 0x80010001, 0xffffffff}));
    EXPECT_STREQ(descriptor->getSectionName(0x80010000), "b.section");
    EXPECT_STREQ(descriptor->getTagName(0x80010000), "iso");
    EXPECT_EQ(descriptor->getTagType(0x80010000), TYPE_RATIONAL);
    EXPECT_EQ(descriptor->getSectionName(0x80000000), nullptr);
    EXPECT_EQ(descriptor->getTagName(0x80010002), nullptr);
    EXPECT_EQ(descriptor->getTagType(0x80010002), -1);
    ASSERT_EQ(descriptor->getAllSectionNames()->size(), 2U);
    EXPECT_STREQ(descriptor->getAllSectionNames()->itemAt(1).c_str(), "b.section");

    qz::test::LogCapture log;
    uint32_t tag = 5;
    EXPECT_EQ(descriptor->lookupTag(String8("b.section"), String8("zoom"), &tag), BAD_VALUE)
        << "name comes first";
    EXPECT_EQ(descriptor->lookupTag(String8("iso"), String8("a.section"), &tag), BAD_VALUE);
    EXPECT_EQ(tag, 5U);
    EXPECT_EQ(log.takeErrors(), (std::vector<std::string>{"VendorTagDescriptor", "VendorTagDescriptor"}));
    EXPECT_EQ(descriptor->lookupTag(String8("zoom"), String8("b.section"), &tag), OK);
    EXPECT_EQ(tag, 0x80010001U);
    EXPECT_EQ(descriptor->lookupTag(String8("zoom"), String8("a.section"), &tag), OK);
    EXPECT_EQ(tag, 0x80000008U) << "the last listed of three alike";
    EXPECT_EQ(descriptor->lookupTag(String8("zoom"), String8("a.section"), nullptr), OK);
}

// A HAL whose answers depend on earlier calls.
TEST(VendorTagDescriptor, OrderOfHalCalls) {
    static std::string asked;
    VendorTagOps ops({{0x80000002, "s", "b", TYPE_BYTE},
                      {0x80000001, "s", "a", TYPE_BYTE},
                      {0x80000002, "s", "b", TYPE_BYTE}});
    ops.get_tag_name = [](const vendor_tag_ops_t* self, uint32_t tag) {
        asked += " name" + std::to_string(tag & 0xf);
        return VendorTagOps::of(self).row(tag).name;
    };
    ops.get_section_name = [](const vendor_tag_ops_t* self, uint32_t tag) {
        asked += " section";
        return VendorTagOps::of(self).row(tag).section;
    };
    ops.get_tag_type = [](const vendor_tag_ops_t* /*ops*/, uint32_t /*tag*/) {
        asked += " type";
        return static_cast<int>(std::count(asked.begin(), asked.end(), 'm'));  // 1, 2, 3
    };
    sp<VendorTagDescriptor> descriptor;
    ASSERT_EQ(VendorTagDescriptor::createDescriptorFromOps(&ops, descriptor), OK);
    EXPECT_EQ(asked, " name2 section type name1 section type name2 section type");
    EXPECT_EQ(descriptor->getTagCount(), 2);
    EXPECT_EQ(descriptor->getTagType(0x80000002), 3) << "the later answer counts";
}

TEST(VendorTagDescriptor, SmallestAndLargestCount) {
    std::vector<qz::test::VendorTag> rows;
    sp<VendorTagDescriptor> descriptor;
    const VendorTagOps none(rows);
    ASSERT_EQ(VendorTagDescriptor::createDescriptorFromOps(&none, descriptor), OK);
    EXPECT_EQ(descriptor->getTagCount(), -1);
    EXPECT_EQ(descriptor->getAllSectionNames()->size(), 0U);
    for (uint32_t i = 0; i < 65536; ++i) rows.push_back({0x80000000 + i, "s", "n", TYPE_BYTE});
    VendorTagOps all(rows);
    const auto first = [](const vendor_tag_ops_t* /*ops*/, uint32_t /*tag*/) { return "text"; };
    all.get_section_name = first;
    all.get_tag_name = first;
    all.get_tag_type = [](const vendor_tag_ops_t* /*ops*/, uint32_t /*tag*/) { return 0; };
    ASSERT_EQ(VendorTagDescriptor::createDescriptorFromOps(&all, descriptor), OK);
    EXPECT_EQ(descriptor->getTagCount(), 65536);
}

TEST(VendorTagDescriptor, TheGlobalOneMayBeReplacedWhileOthersReadIt) {
    std::atomic<bool> done = false;
    int found = 0;
    std::thread reader([&done, &found] {
        do {
            const sp<VendorTagDescriptor> global = VendorTagDescriptor::getGlobalVendorTagDescriptor();
            uint32_t tag = 0;
            if (global != nullptr && global->lookupTag(String8("n"), String8("s"), &tag) == OK) ++found;
            if (tag != 0) done = true;
        } while (!done);
    });
    while (!done)
        const qz::test::VendorTags vendor(
            std::vector<qz::test::VendorTag>{{0x80000000, "s", "n", TYPE_BYTE}});
    reader.join();
    EXPECT_GT(found, 0);
    EXPECT_EQ(get_camera_metadata_tag_type(0x80000000), -1);
    EXPECT_EQ(get_camera_metadata_section_name(0x80000000), nullptr);
}

}  // namespace
