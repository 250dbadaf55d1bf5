#pragma once
// The video outputs: which connectors carry the menu and at what resolution (a new
// resolution goes through the same keep-or-revert confirmation as at start-up), the
// menu's transparency, the live sequence's dwell, and the spot output with its format,
// dwell and channels. Holds block 12.
#include "ui/settings/SettingsPage.h"

class BitMaskChecks;
class VyCheckBox;
class VyComboBox;
class VySpinBox;

class OutputPage : public SettingsPage {
    VY_OBJECT(OutputPage, SettingsPage)
public:
    explicit OutputPage(VyWidget* parent = nullptr);

    VyComboBox* deviceBox() const { return m_device; }
    VyComboBox* resolutionBox() const { return m_resolution; }
    VySpinBox* transparencyBox() const { return m_transparency; }
    VySpinBox* sequenceDwellBox() const { return m_sequence; }
    VyCheckBox* spotBox() const { return m_spot; }
    VyComboBox* spotStandardBox() const { return m_standard; }
    VySpinBox* spotDwellBox() const { return m_spotDwell; }
    BitMaskChecks* spotChannels() const { return m_spotChannels; }

    uint32_t invalidField() override;
    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void beforeWrite() override;
    void written(int sent) override;

private:
    int m_slot;
    bool m_resolutionChanged = false;
    VyComboBox* m_device;
    VyComboBox* m_resolution;
    VySpinBox* m_transparency;
    VySpinBox* m_sequence;
    VyCheckBox* m_spot;
    VyComboBox* m_standard;
    VySpinBox* m_spotDwell;
    BitMaskChecks* m_spotChannels;
};
