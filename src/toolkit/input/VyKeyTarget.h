#pragma once
// What the key manager drives besides the key focus: the screens that own the keys of the
// live view and of playback. The key manager sits in the toolkit, below those screens, so
// it cannot name them; each screen implements this interface and registers itself for its
// role while it exists. A key routed to a role nobody registered is ignored.
//
//     class MainViewWindow : public VyWidget, public VyKeyTarget {
//         ...
//         VyWidget* keyWindow() const override { return const_cast<MainViewWindow*>(this); }
//         bool keyAction(uint32_t deviceKey) override;   // layout keys 29..38, 47, 48, ...
//         bool selectChannel(int channel) override;      // 1-based
//     };
//     VyKeyManager::instance()->setKeyTarget(VyKeyTarget::MainView, this);
//
// A target unregisters itself when it is destroyed. Registering through instance() is
// safe before the models exist: the manager it makes hands its targets on.
#include <cstdint>

class VyWidget;

class VyKeyTarget {
public:
    enum Role {
        MainView,       // channel selection, layout keys and the main view's own actions
        TaskBar,        // the task bar's actions
        PlaybackWindow, // playback keys
        VideoScreen,    // the video screen's operation on keys 61..66
        RoleCount
    };

    VyKeyTarget() = default;
    virtual ~VyKeyTarget();
    VyKeyTarget(const VyKeyTarget&) = delete;
    VyKeyTarget& operator=(const VyKeyTarget&) = delete;

    // One device key the action table routes to this role, with its value (alike keys, such
    // as layout keys 30 and 34, arrive as they were pressed). True when it was used.
    virtual bool keyAction(uint32_t deviceKey) = 0;
    // Main view: select channel 1..channel count (digits and direct channel keys).
    virtual bool selectChannel(int channel) {
        (void)channel;
        return false;
    }
    // Main view: its window. While it is the active window (no other window open), the live
    // view holds the keys: digits select channels instead of being typed.
    virtual VyWidget* keyWindow() const { return nullptr; }
};
