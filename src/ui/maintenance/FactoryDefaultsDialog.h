#pragma once
// Factory defaults with a choice of what survives: the network, the recording and the general
// settings each have a box; loading is the confirmation, and the dialog says afterwards what
// was kept.
#include "toolkit/widgets/VyDialog.h"

#include <cstdint>

class VyCheckBox;
class VyLabel;
class VyPushButton;

class FactoryDefaultsDialog : public VyDialog {
    VY_OBJECT(FactoryDefaultsDialog, VyDialog)
public:
    static constexpr int kGroupCount = 3;

    FactoryDefaultsDialog();

    VyCheckBox* keepBox(int i) const { return m_keep[i]; }
    VyPushButton* loadButton() const { return m_load; }
    // The FactoryDefaultsRequest bits of the boxes ticked.
    uint32_t keepMask() const;
    // Asks App; false (and the reason shown) when it did not answer as asked.
    bool load();
    bool isLoaded() const { return m_loaded; }
    VyString statusText() const;

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void loadClicked() { load(); }

    VyLabel* m_text;
    VyLabel* m_keepCaption;
    VyCheckBox* m_keep[kGroupCount];
    VyLabel* m_status;
    VyPushButton* m_load;
    VyPushButton* m_close;
    bool m_loaded = false;
};
