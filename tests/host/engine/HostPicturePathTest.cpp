#include <gtest/gtest.h>

#include <map>
#include <string>

#include "host/engine/HostPicturePath.h"

namespace {

using Variables = std::map<std::string, QByteArray>;

HostPicturePath::Choice decideWith(const Variables& variables)
{
    return HostPicturePath::decide([&](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? QByteArray() : found->second;
    });
}

} // namespace

TEST(HostPicturePathTest, PlainImagesAtAnXDisplay_UnlessTheUserChoseOrThereIsNone)
{
    const std::string plain = "plain images: Qt's OpenGL conversion swaps the colours of full-range video";
    const struct {
        Variables variables;
        bool withoutOpenGL;
        std::string reason;
    } cases[] = {
        {{{"DISPLAY", ":0"}}, true, plain},
        {{{"QT_QPA_PLATFORM", "xcb:nomitshm"}}, true, plain},
        {{}, false, ""},
        {{{"DISPLAY", ":0"}, {"QT_QPA_PLATFORM", "wayland;xcb"}}, false, ""},
        {{{"DISPLAY", ":0"}, {"QT_XCB_GL_INTEGRATION", "xcb_egl"}}, false,
         "left to QT_XCB_GL_INTEGRATION=xcb_egl, as the environment sets it"},
    };
    for (const auto& c : cases) {
        const HostPicturePath::Choice choice = decideWith(c.variables);
        EXPECT_EQ(choice.withoutOpenGL, c.withoutOpenGL) << c.reason;
        EXPECT_EQ(choice.reason.toStdString(), c.reason);
    }
}
