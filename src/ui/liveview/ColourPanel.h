#pragma once
// The colour panel the tool bar opens over a camera: brightness, contrast, saturation and hue
// (0..255) of the channel's camera block (parameter block 3, the same values as the image
// settings page). Moving a slider applies at once: the block is written back when the
// sliders have rested kSettleMs, so a drag sends one write, not one per step. Default puts
// the four back to the middle; Close writes what is still pending and hides the panel.
#include "protocol/CameraBlock.h"
#include "toolkit/core/VyWidget.h"

class VyLabel;
class VySlider;
class VyAbstractButton;

class ColourPanel : public VyWidget {
    VY_OBJECT(ColourPanel, VyWidget)
public:
    static constexpr int kSettleMs = 300;
    enum Item { Brightness, Contrast, Saturation, Hue, ItemCount };

    explicit ColourPanel(VyWidget* parent = nullptr);

    // Reads the channel's camera block (a blocking request) and shows its values.
    void open(int channel);
    int channel() const { return m_block.channel; }
    int value(Item item) const;
    VySlider* slider(Item item) const { return m_sliders[item]; }
    VyAbstractButton* defaultButton() const { return m_default; }
    VyAbstractButton* closeButton() const { return m_close; }
    // Writes now if a change is waiting.
    void flush();
    int writeCount() const { return m_writes; }

    VySize sizeHint() const override;

    VySignal closeRequested;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;

private:
    void onSliderChanged();
    void onDefault();
    void onClose();
    void arrange();

    CameraBlock m_block{};
    VyLabel* m_title;               // child
    VyLabel* m_labels[ItemCount];   // children
    VySlider* m_sliders[ItemCount]; // children
    VyAbstractButton* m_default;    // child
    VyAbstractButton* m_close;      // child
    int m_settleTimer = 0;
    int m_writes = 0;
    bool m_loading = false; // values being shown, not chosen
};
