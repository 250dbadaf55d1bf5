#include "ui/settings/SettingsPage.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/UiLook.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int kMarginDesign = 24; // pixels at 1920x1080
constexpr int kRowHeightDesign = 44;
constexpr int kRowGapDesign = 12;
constexpr int kLabelWidthDesign = 320;
constexpr int kControlWidthDesign = 360;

} // namespace

SettingsPage::SettingsPage(uint32_t titleId, VyWidget* parent)
    : CWidget(parent)
    , m_titleId(titleId) {}

void SettingsPage::open() {
    VyPointer<SettingsPage> self(this);
    for (int i = 0; i < m_blocks.count(); ++i) {
        m_blocks.fetchOne(i);
        if (!self || m_abandoned)
            return; // left while App was answering: fetch nothing more
    }
    m_opened = true;
    opened();
    showValues();
}

int SettingsPage::apply() {
    collectValues();
    if (const uint32_t field = invalidField()) {
        VY_GUI_LOG("settings not applied: field %u is not valid\n", field);
        return kInvalid;
    }
    beforeWrite();
    const int sent = m_blocks.writeChanged();
    VyPointer<SettingsPage> self(this);
    written(sent);
    if (!self)
        return sent;
    return sendRequests() ? sent : kRefused;
}

void SettingsPage::cancel() {
    m_blocks.revert();
    cancelled();
    showValues();
}

bool SettingsPage::hasUnsavedChanges() {
    if (!m_opened)
        return false;
    collectValues();
    return m_blocks.isModified();
}

bool SettingsPage::parameterChanged(uint32_t number) {
    if (!m_opened)
        return false;
    collectValues();
    VyPointer<SettingsPage> self(this);
    const bool held = m_blocks.refresh(number);
    if (!self || !held)
        return false;
    showValues();
    return true;
}

int SettingsPage::clampForDisplay(int value, int lo, int hi, const char* field) {
    if (value >= lo && value <= hi)
        return value;
    const int shown = value < lo ? lo : hi;
    VY_GUI_LOG("%s = %d is out of range %d..%d, shown as %d\n", field, value, lo, hi, shown);
    return shown;
}

int SettingsPage::fromControl(int saved, int lo, int hi, int control) {
    const bool outside = saved < lo || saved > hi;
    const int shown = saved < lo ? lo : (saved > hi ? hi : saved);
    return outside && control == shown ? saved : control;
}

VyString SettingsPage::fieldText(const char* field, size_t size) {
    return VyString(std::string(field, strnlen(field, size)));
}

void SettingsPage::storeText(char* field, size_t size, const VyString& text) {
    if (size == 0)
        return;
    const std::string& s = text.toStdString();
    size_t n = std::min(s.size(), size - 1);
    // Never end inside a UTF-8 sequence: step back over continuation bytes.
    while (n > 0 && n < s.size() && (uint8_t(s[n]) & 0xC0) == 0x80)
        --n;
    // Zero-filled first: the text ends with at least one NUL inside the field.
    std::memset(field, 0, size);
    std::copy_n(s.data(), n, field);
}

void SettingsPage::showSpin(VySpinBox* box, int value) {
    if (box->isTyping() || box->value() == value)
        return;
    box->setValue(value);
}

VyLineEdit* SettingsPage::addTextRow(uint32_t textId, size_t offset, size_t size, bool secret) {
    auto* e = new VyLineEdit(this);
    e->setMaxLength(int(size) - 1);
    if (secret)
        e->setEchoMode(VyLineEdit::Password);
    addRow(textId, e);
    watch(e, &e->textChanged);
    m_texts.push_back({e, offset, size});
    return e;
}

void SettingsPage::showTexts(const void* record) {
    const auto* bytes = static_cast<const char*>(record);
    for (const TextField& t : m_texts) {
        const VyString text = fieldText(bytes + t.offset, t.size);
        if (t.edit->text() != text)
            t.edit->setText(text);
    }
}

void SettingsPage::collectTexts(void* record, const void* saved) {
    auto* bytes = static_cast<char*>(record);
    const auto* savedBytes = static_cast<const char*>(saved);
    for (const TextField& t : m_texts) {
        if (t.edit->text() == fieldText(savedBytes + t.offset, t.size))
            std::memcpy(bytes + t.offset, savedBytes + t.offset, t.size);
        else
            storeText(bytes + t.offset, t.size, t.edit->text());
    }
}

void SettingsPage::watch(VyObject* control, const VySignal* signal) {
    VyObject::connect(control, signal, this, VY_SLOT(SettingsPage, markEdited));
}

VyWidget* SettingsPage::addRow(uint32_t textId, VyWidget* control) {
    auto* label = new VyLabel(this);
    label->setTextId(textId);
    label->show();
    control->show();
    m_rows.push_back({label, control});
    return control;
}

int SettingsPage::rowsBottom() const {
    const int n = int(m_rows.size());
    return UiLook::scaledY(kMarginDesign) + n * UiLook::scaledY(kRowHeightDesign + kRowGapDesign);
}

void SettingsPage::resizeEvent(VyResizeEvent*) {
    const int x = UiLook::scaledX(kMarginDesign);
    const int labelWidth = UiLook::scaledX(kLabelWidthDesign);
    const int controlWidth = UiLook::scaledX(kControlWidthDesign);
    const int h = UiLook::scaledY(kRowHeightDesign);
    int y = UiLook::scaledY(kMarginDesign);
    for (const Row& r : m_rows) {
        r.label->setGeometry(x, y, labelWidth, h);
        r.control->setGeometry(x + labelWidth, y, controlWidth, h);
        y += UiLook::scaledY(kRowHeightDesign + kRowGapDesign);
    }
}
