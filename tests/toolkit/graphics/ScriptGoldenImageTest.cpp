// One label per script drawn through the canvas with the device font and the fallback
// fonts, against small reference images that were checked by eye. On a mismatch the actual
// image is written beside the expected one. VY_UPDATE_GOLDEN=1 rewrites the references.
#include "platform/display/VyFrameDump.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyFontEngine.h"
#include "runtime/VyTextShaper.h"
#include "toolkit/graphics/VyFbCanvas.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

const char* const kDeviceFont = "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc";
const std::vector<VyString> kFallbacks = {
    "/usr/share/fonts/truetype/noto/NotoSans-Regular.ttf",
    "/usr/share/fonts/truetype/noto/NotoSansArabic-Regular.ttf",
    "/usr/share/fonts/truetype/noto/NotoSansHebrew-Regular.ttf",
    "/usr/share/fonts/truetype/noto/NotoSansDevanagari-Regular.ttf",
    "/usr/share/fonts/truetype/noto/NotoSansThai-Regular.ttf",
    "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc",
};
constexpr int kWidth = 220;
constexpr int kHeight = 32;
constexpr int kPixelSize = 20;

struct Label {
    const char* name;
    const char* text;
    bool rightToLeft; // drawn while a right-to-left language is shown
};

const Label kLabels[] = {
    {"chinese", "通道 1 录像回放", false},    {"japanese", "録画の再生 チャンネル", false},
    {"korean", "채널 1 녹화 재생", false},    {"russian", "Запись канала 1", false},
    {"greek", "Εγγραφή καναλιού 1", false},   {"thai", "การตั้งค่าช่อง 1", false},
    {"hindi", "चैनल 1 रिकॉर्डिंग", false},       {"arabic", "القناة 12 تسجيل HD", true},
    {"hebrew", "ערוץ 12 הקלטה", true},        {"persian", "کانال ۱۲ ضبط", true},
    {"vietnamese", "Kênh 1 ghi hình", false},
};

class ScriptGoldenImage : public ::testing::TestWithParam<Label> {
protected:
    void SetUp() override {
        if (access(kDeviceFont, R_OK) != 0)
            GTEST_SKIP() << kDeviceFont << " is not installed";
        for (const VyString& f : kFallbacks)
            if (access(f.c_str(), R_OK) != 0)
                GTEST_SKIP() << f.c_str() << " is not installed";
        VyFontEngine& engine = VyFontEngine::instance();
        ASSERT_TRUE(engine.setFontFile(kDeviceFont, VyFontEngine::kDeviceFontReserveBytes));
        ASSERT_EQ(engine.setFallbackFonts(kFallbacks), int(kFallbacks.size()));
    }
    void TearDown() override {
        VyFontEngine::instance().setFallbackFonts({});
        VyFontEngine::instance().shaper().setDefaultRightToLeft(false);
    }
};

TEST_P(ScriptGoldenImage, LabelMatchesItsReference) {
    const Label& label = GetParam();
    VyFontEngine::instance().shaper().setDefaultRightToLeft(label.rightToLeft);
    VyFbCanvas canvas(kWidth, kHeight);
    canvas.fillRect(VyRect(0, 0, kWidth, kHeight), 0xff202830);
    // Asks for the leading edge: left, or right while a right-to-left language is shown.
    canvas.drawText(VyRect(4, 0, kWidth - 8, kHeight), VyCanvas::AlignLeft | VyCanvas::AlignVCenter,
                    label.text, kPixelSize, 0xfff0f0f0);
    const VyBitmap actual =
        VyFrameDump::toBitmap(reinterpret_cast<const uint8_t*>(canvas.scanLine(0)), kWidth, kHeight,
                              canvas.bytesPerLine());
    ASSERT_FALSE(actual.isNull());

    const std::string base = std::string(VY_TEST_DATA_DIR "/text/") + label.name;
    const VyString expectedPath((base + ".png").c_str());
    const VyString actualPath((base + ".actual.png").c_str());
    if (std::getenv("VY_UPDATE_GOLDEN") != nullptr) {
        ASSERT_TRUE(actual.savePng(expectedPath));
        return;
    }
    const VyBitmap expected = VyBitmap::loadPng(expectedPath);
    bool same = !expected.isNull() && expected.width() == kWidth && expected.height() == kHeight;
    for (int i = 0; same && i < kWidth * kHeight * 4; ++i)
        same = expected.constBits()[i] == actual.constBits()[i];
    if (!same) {
        actual.savePng(actualPath);
        FAIL() << label.name << " differs from " << expectedPath.c_str() << "; actual written to "
               << actualPath.c_str();
    }
}

INSTANTIATE_TEST_SUITE_P(Scripts, ScriptGoldenImage, ::testing::ValuesIn(kLabels),
                         [](const ::testing::TestParamInfo<Label>& param) {
                             return std::string(param.param.name);
                         });

} // namespace
