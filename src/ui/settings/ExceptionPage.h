#pragma once
// What the recorder does when a disk fills up, a disk fails or a channel loses its video:
// one row per exception with its actions (buzzer, pop-up, e-mail and, where the model has
// relay outputs, the outputs to close). Holds block 17.
#include "ui/settings/SettingsPage.h"

#include "protocol/ExceptionBlock.h"

class BitMaskChecks;
class VyCheckBox;
class VyLabel;

class ExceptionPage : public SettingsPage {
    VY_OBJECT(ExceptionPage, SettingsPage)
public:
    explicit ExceptionPage(VyWidget* parent = nullptr);

    struct Row {
        VyLabel* label; // the exception's name
        VyCheckBox* buzzer;
        VyCheckBox* popup;
        VyCheckBox* email;
        BitMaskChecks* outputs; // null without relay outputs
    };
    const Row& row(int kind) const { return m_rows[kind]; }

protected:
    void showValues() override;
    void collectValues() override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    int m_slot;
    Row m_rows[ExceptionBlock::KindCount];
};
