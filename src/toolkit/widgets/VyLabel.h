#pragma once
// Text or an image, placed by alignment flags (VyCanvas::Align*). A text too long for the
// label is elided, or broken into lines with word wrap; it is never drawn outside the label.
// A label given a text ID fetches its text through the text lookup and fetches it again when
// retranslate() runs (connected to the language-changed signal).
#include <cstdint>

#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class VyLabel : public VyWidget {
    VY_OBJECT(VyLabel, VyWidget)
public:
    // The catalogue query: the text of an ID in the loaded language, empty when unknown.
    using TextLookup = VyString (*)(uint32_t textId);
    static constexpr uint32_t kNoTextId = 0xFFFFFFFF;

    explicit VyLabel(VyWidget* parent = nullptr);
    VyLabel(const VyString& text, VyWidget* parent = nullptr);

    // A literal text; drops the text ID.
    void setText(const VyString& text);
    const VyString& text() const { return m_text; }
    // A text from the catalogue, fetched now and on every retranslate().
    void setTextId(uint32_t textId);
    uint32_t textId() const { return m_textId; }
    // Fetches the text of the ID again; the slot of the language-changed signal.
    void retranslate();
    // The process-wide catalogue query labels use; null shows nothing for an ID.
    static void setTextLookup(TextLookup lookup);
    static TextLookup textLookup();

    // Replaces the text; a null image shows the text again.
    void setPixmap(const VyBitmap& image);
    const VyBitmap& pixmap() const { return m_pixmap; }
    void setAlignment(int alignment);
    int alignment() const { return m_alignment; }
    void setWordWrap(bool on);
    bool wordWrap() const { return m_wordWrap; }

    VySize sizeHint() const override;
    // The lines the label shows at its current width.
    VyStringList displayLines() const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    int fontPixelSize() const;

    VyString m_text;
    VyBitmap m_pixmap;
    uint32_t m_textId = kNoTextId;
    int m_alignment;
    bool m_wordWrap = false;
};
