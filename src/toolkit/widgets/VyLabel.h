#pragma once
// Text or an image, placed by alignment flags (VyCanvas::Align*). A text too long for the
// label is elided, or broken into lines with word wrap; it is never drawn outside the label.
// A label given a text ID fetches its text from the translation and fetches it again whenever
// the language changes, so an open window follows a language switch without reopening.
#include <cstdint>

#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class VyLabel : public VyWidget {
    VY_OBJECT(VyLabel, VyWidget)
public:
    static constexpr uint32_t kNoTextId = 0xFFFFFFFF;

    explicit VyLabel(VyWidget* parent = nullptr);
    VyLabel(const VyString& text, VyWidget* parent = nullptr);

    // A literal text; drops the text ID.
    void setText(const VyString& text);
    const VyString& text() const { return m_text; }
    // A text from the catalogue, fetched now and again on every language change.
    void setTextId(uint32_t textId);
    uint32_t textId() const { return m_textId; }
    // Fetches the text of the ID again; the slot of the language-changed signal.
    void retranslate();

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
    // The translation whose language-changed signal this label listens to, once it has an ID.
    VyObject* m_listenedTranslation = nullptr;
    int m_alignment;
    bool m_wordWrap = false;
};
