// SPDX-License-Identifier: Apache-2.0
#include "callback/Session.h"

namespace qz::test {
namespace {

TEST(PreviewParameters, AreSentInProfessionalModeOnly) {
    Session session;
    session.play("exposureTime=20000999 isoState=404 exposureStateHint=3");
    EXPECT_THAT(session.host->asked, testing::Not(testing::Contains(testing::EndsWith("isoState"))));
    session.professional();
    session.play(R"(
exposureTime=20000999,1 isoState=404,1 exposureStateHint=3 qz_algo_mean_y=101
    D profGetExposureHint(), exposure hint from scene: 3, value: 3|> 800000[204e0000 90010000 03000000]
isoState=|> 800000[ffffffff ffffffff 00000000]
exposureTime=0|> 800000[ffffffff ffffffff 00000000]
exposureTime=999|> 800000[00000000 ffffffff 00000000]
exposureTime=-2999|> 800000[feffffff ffffffff 00000000]
exposureTime=2147483648000|> 800000[00000080 ffffffff 00000000]
exposureTime=i:5000000|> 800000[ffffffff ffffffff 00000000]
isoState=b:100|> 800000[ffffffff ffffffff 00000000]
exposureStateHint=1 qz_algo_mean_y=24
    D profGetExposureHint(), exposure hint from scene: 1, value: 1|> 800000[ffffffff ffffffff 01000000]
exposureStateHint=2 qz_algo_mean_y=101
    D profGetExposureHint(), exposure hint from scene: 2, value: 2|> 800000[ffffffff ffffffff 02000000]
exposureStateHint=4 qz_algo_mean_y=101
    D profGetExposureHint(), exposure hint from scene: 0, value: 4|> 800000[ffffffff ffffffff 01000000]
exposureStateHint=0 qz_algo_mean_y=24
    D profGetExposureHint(), exposure hint from scene: 0, value: 0|> 800000[ffffffff ffffffff 02000000]
exposureStateHint=-1 qz_algo_mean_y=-1
    D profGetExposureHint(), exposure hint from scene: 0, value: -1|> 800000[ffffffff ffffffff 02000000]
exposureStateHint=3,3 qz_algo_mean_y=25|> 800000[ffffffff ffffffff 00000000]
exposureStateHint=b:3 qz_algo_mean_y=100|> 800000[ffffffff ffffffff 00000000]
qz_algo_mean_y=101,101|> 800000[ffffffff ffffffff 00000000]
qz_algo_mean_y=b:101|> 800000[ffffffff ffffffff 00000000]
)");
}

// If one of the tags of the hint is missing, a block is sent only with a time or an ISO.
TEST(PreviewParameters, NeedATimeAnIsoOrAHint) {
    for (const char* undeclared : {"exposureStateHint", "qz_algo_mean_y"}) {
        Session session(undeclared);
        session.professional();
        session.play(R"(
qz-zsl-mode=
exposureTime=2000|> 800000[02000000 ffffffff 00000000]
isoState=100|> 800000[ffffffff 64000000 00000000]
)");
    }
    Session session("qz_algo_mean_y");
    session.professional();
    session.play(R"(
exposureStateHint=2
    D profGetExposureHint(), exposure hint from scene: 2, value: 2|> 800000[ffffffff ffffffff 02000000]
)");
}

TEST(PreviewParameters, HintNeedsAPointer) {
    Session session;
    EXPECT_EQ(profGetExposureHint(session.host.get(), {session.result, {}}, nullptr), 0);
    EXPECT_EQ(session.trace(),
              "E int qz::CameraQzCallBack::profGetExposureHint(const CameraMetadata &, int32_t *)(835): "
              "expoHint is NULL.\n");
}

TEST(PreviewParameters, IsoIsRoundedToItsStep) {
    const int uppers[] = {44,  56,  71,   89,   112,  141,  178,  224,  282,  356,  449, 565,
                          712, 890, 1122, 1414, 1782, 2245, 2828, 3564, 4490, 5657, 7127};
    const int steps[] = {50,  64,  80,   100,  125,  160,  200,  250,  320,  400,  500,
                         640, 800, 1000, 1250, 1600, 2000, 2500, 3200, 4000, 5000, 6400};
    Session session;
    for (size_t i = 0; i < std::size(steps); ++i) {
        EXPECT_EQ(professionalIsoConvert(uppers[i] + 1), steps[i]);
        EXPECT_EQ(professionalIsoConvert(uppers[i + 1]), steps[i]);
    }
    EXPECT_EQ(session.trace(), "");
    const std::string signature = "W int qz::CameraQzCallBack::professionalIsoConvert(int32_t) , iso[";
    for (const int32_t iso : {44, 0, INT32_MIN}) {
        EXPECT_EQ(professionalIsoConvert(iso), 50);
        EXPECT_EQ(session.trace(),
                  signature + std::to_string(iso) + "] is lower than isoTable[0].iso_lower.\n");
    }
    for (const int32_t iso : {7128, INT32_MAX}) {
        EXPECT_EQ(professionalIsoConvert(iso), 6400);
        EXPECT_EQ(session.trace(),
                  signature + std::to_string(iso) + "] is upper than isoTable[22].iso_upper.\n");
    }
}

}  // namespace
}  // namespace qz::test
