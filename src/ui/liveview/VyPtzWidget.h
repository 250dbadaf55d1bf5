#pragma once
// The PTZ panel the tool bar opens over the selected camera: the pan and tilt pad in eight
// directions, zoom, focus and iris (each - and +), the speed 1..8 and presets 1..255 (go to
// or store). A held button moves the camera: a start request on press, a stop on release
// (and on hiding while held, so a camera never keeps turning). The remote drives the panel
// through the key focus: its arrows move between the buttons, OK gives a short press.
#include "toolkit/core/VyWidget.h"

#include <vector>

class ImageButton;
class VyAbstractButton;
class VyLabel;
class VySpinBox;

class VyPtzWidget : public VyWidget {
    VY_OBJECT(VyPtzWidget, VyWidget)
public:
    // The held buttons, by their move.
    enum Button {
        Up,
        Down,
        Left,
        Right,
        UpLeft,
        UpRight,
        DownLeft,
        DownRight,
        ZoomOut,
        ZoomIn,
        FocusNear,
        FocusFar,
        IrisClose,
        IrisOpen,
        ButtonCount
    };

    explicit VyPtzWidget(VyWidget* parent = nullptr);
    ~VyPtzWidget() override;

    // The 0-based channel the requests go to.
    void setChannel(int channel);
    int channel() const { return m_channel; }
    int speed() const;
    void setSpeed(int speed);
    int preset() const;

    VyAbstractButton* button(Button b) const { return m_buttons[size_t(b)]; }
    VyAbstractButton* callButton() const;
    VyAbstractButton* storeButton() const;
    VyAbstractButton* closeButton() const;
    VySpinBox* speedBox() const { return m_speed; }
    VySpinBox* presetBox() const { return m_preset; }
    // The move a button sends (a PreviewControl::kPtz* value).
    static int moveOf(Button b);

    VySize sizeHint() const override;

    VySignal closeRequested;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void hideEvent(VyHideEvent* e) override;

private:
    static void pressedSlot(VyObject* sender, VyObject* receiver);
    static void releasedSlot(VyObject* sender, VyObject* receiver);
    void onPressed(VyObject* sender);
    void onReleased(VyObject* sender);
    void onCall();
    void onStore();
    void onClose();
    void sendMove(Button b, bool start);
    void sendPreset(bool call);
    void arrange();

    std::vector<VyAbstractButton*> m_buttons; // children, by Button
    std::vector<VyLabel*> m_rowLabels;        // children: zoom, focus, iris, speed, preset
    VyLabel* m_title;                         // child
    VySpinBox* m_speed;                       // child
    VySpinBox* m_preset;                      // child
    VyAbstractButton* m_call;                 // child
    VyAbstractButton* m_store;                // child
    ImageButton* m_close;                     // child
    int m_channel = 0;
    int m_held = -1; // the Button whose move runs, or -1
};
