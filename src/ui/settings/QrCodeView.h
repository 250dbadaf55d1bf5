#pragma once
// A QR code of a short text (the device ID a phone scans to add the recorder), drawn
// black on white with a quiet zone of four modules, each module a whole number of pixels.
// The symbol is made with libqrencode whenever the text changes.
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>
#include <vector>

class QrCodeView : public VyWidget {
    VY_OBJECT(QrCodeView, VyWidget)
public:
    static constexpr int kQuietModules = 4;

    explicit QrCodeView(VyWidget* parent = nullptr);
    void setText(const VyString& text);
    const VyString& text() const { return m_text; }
    // Modules per side of the symbol, 0 when there is none (empty or unencodable text).
    int symbolWidth() const { return m_width; }
    bool isDark(int x, int y) const;

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    VyString m_text;
    int m_width = 0;
    std::vector<uint8_t> m_modules; // row-major, 1 = dark
};
