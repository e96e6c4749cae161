#include <gtest/gtest.h>

#include <map>
#include <string>

#include "host/engine/HostPicturePath.h"

namespace {

using Variables = std::map<std::string, QByteArray>;

struct Decision {
    HostPicturePath::Choice choice;
    int probes = 0;
};

// Decides with these environment variables and this probe answer.
Decision decideWith(const Variables& variables, const QByteArray& answer)
{
    Decision decision;
    decision.choice = HostPicturePath::decide(
        [&](const char* name) {
            const auto found = variables.find(name);
            return found == variables.end() ? QByteArray() : found->second;
        },
        [&] {
            ++decision.probes;
            return answer;
        });
    return decision;
}

const Variables kXDisplay{{"DISPLAY", ":0"}};
const QByteArray kGoodAnswer = "opengl\tAMD Radeon RX 6600 (radeonsi)\t#2848cf\n";

} // namespace

TEST(HostPicturePathTest, NoXDisplayOrAUserValue_LeavesQtAloneWithoutProbing)
{
    for (const Variables& variables : {Variables{}, Variables{{"DISPLAY", ":0"}, {"QT_QPA_PLATFORM", "offscreen"}},
                                       Variables{{"DISPLAY", ":0"}, {"QT_QPA_PLATFORM", "wayland;xcb"}}}) {
        const Decision decision = decideWith(variables, "no-opengl\n");
        EXPECT_FALSE(decision.choice.withoutOpenGL);
        EXPECT_EQ(decision.choice.reason.toStdString(), "");
        EXPECT_EQ(decision.probes, 0);
    }
    const Decision user = decideWith({{"DISPLAY", ":0"}, {"QT_XCB_GL_INTEGRATION", "xcb_egl"}}, "no-opengl\n");
    EXPECT_FALSE(user.choice.withoutOpenGL);
    EXPECT_EQ(user.choice.reason.toStdString(), "left to QT_XCB_GL_INTEGRATION=xcb_egl, as the environment sets it");
    EXPECT_EQ(user.probes, 0);
}

TEST(HostPicturePathTest, TheProbesAnswer_ChoosesOpenGLOnlyForAHardwareRendererWithTheRightColour)
{
    const std::string noAnswer = "plain images: the OpenGL probe gave no answer (it could not start, crashed or hung)";
    const struct {
        Variables variables;
        QByteArray answer;
        bool withoutOpenGL;
        std::string reason;
    } cases[] = {
        {kXDisplay, kGoodAnswer, false, "OpenGL (AMD Radeon RX 6600 (radeonsi)): it gives the test colour back"},
        {{{"QT_QPA_PLATFORM", "xcb:nomitshm"}}, kGoodAnswer, false,
         "OpenGL (AMD Radeon RX 6600 (radeonsi)): it gives the test colour back"},
        {kXDisplay, "opengl\tRadeon\t#2940cf\n", true, "plain images: OpenGL (Radeon) turns the test colour #2040cf into #2940cf"},
        {kXDisplay, "opengl\tRadeon\t#164ab5\n", true, "plain images: OpenGL (Radeon) turns the test colour #2040cf into #164ab5"},
        {kXDisplay, "opengl\tllvmpipe (LLVM 15.0.6, 256 bits)\t#2040cf\n", true,
         "plain images: the display's OpenGL is a software rasteriser (llvmpipe (LLVM 15.0.6, 256 bits))"},
        {kXDisplay, "no-opengl\n", true, "plain images: the X display offers no OpenGL"},
        {kXDisplay, "", true, noAnswer},
        {kXDisplay, "opengl\tRadeon\t#2040cf", true, noAnswer},
        {kXDisplay, "opengl\tRadeon\tblue\n", true, noAnswer},
        {kXDisplay, "opengl\t#2040cf\n", true, noAnswer},
    };
    for (const auto& c : cases) {
        const Decision decision = decideWith(c.variables, c.answer);
        EXPECT_EQ(decision.choice.withoutOpenGL, c.withoutOpenGL) << c.answer.constData();
        EXPECT_EQ(decision.choice.reason.toStdString(), c.reason);
        EXPECT_EQ(decision.probes, 1);
    }
}
