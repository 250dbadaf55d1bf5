#pragma once
// A dialog that asks for one line of text: a label, a line edit (with the on-screen keyboard
// the line edit opens) and OK and Cancel. OK in the field or on the OK button accepts it.
#include <cstdint>

#include "toolkit/widgets/VyDialog.h"

class VyLabel;
class VyLineEdit;
class VyPushButton;

class VyInputDialog : public VyDialog {
    VY_OBJECT(VyInputDialog, VyDialog)
public:
    static constexpr int kDesignWidth = 560; // pixels at 1920x1080
    static constexpr int kDesignHeight = 240;

    explicit VyInputDialog(VyWidget* parent = nullptr);
    ~VyInputDialog() override;

    // Asks in a nested loop; `ok` (when given) tells whether OK ended it. The text is returned
    // only when it did, else `text` comes back unchanged.
    static VyString getText(const VyString& title, const VyString& label,
                            const VyString& text = VyString(), bool* ok = nullptr);

    void setLabelText(const VyString& text);
    VyString labelText() const;
    void setTextValue(const VyString& text);
    VyString textValue() const;
    VyLineEdit* lineEdit() const { return m_edit; }
    VyPushButton* okButton() const { return m_ok; }
    VyPushButton* cancelButton() const { return m_cancel; }

protected:
    void retranslate() override;
    void resizeEvent(VyResizeEvent* e) override;
    void showEvent(VyShowEvent* e) override;

private:
    VyLabel* m_label;       // child
    VyLineEdit* m_edit;     // child
    VyPushButton* m_ok;     // child
    VyPushButton* m_cancel; // child
};
