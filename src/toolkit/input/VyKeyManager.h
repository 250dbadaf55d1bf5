#pragma once
// The key manager: the one receiver of device keys. Front-panel buttons, the infra-red
// remote, the serial keyboards (read through the key library by the key poll thread) and the
// keys App forwards (notification 186) all arrive here as DvrKeyEvents. Digits select
// channels in the live view, the four arrows and OK move a key focus over the controls of
// the active window and drive them, and most other keys go to the screens registered as key
// targets. It also drives the front-panel lamps.
//
// One lives at a time: the models' set makes it at start-up with the setup start-up installed,
// and instance() answers it; instance() called before that makes one, which gives way (with
// its registered targets) to the next one made. A test makes its own and deletes it.
#include <cstdint>
#include <memory>

#include "platform/keys/VyKeyLibrary.h"
#include "protocol/SerialKeyboardBlock.h"
#include "runtime/VyList.h"
#include "runtime/VyRect.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/input/VyKeyTarget.h"

class VyKeyRecorderLink;
class VyTimer;

class VyKeyManager : public VyObject {
    VY_OBJECT(VyKeyManager, VyObject)
public:
    static constexpr int kPollIntervalMs = 150;
    static constexpr int kDigitTimeoutMs = 500; // pending digits are dropped after this
    static constexpr int kCountedPressMs = 400; // key 45 presses closer than this count
    static constexpr int kCountedPresses = 5;   // presses of key 45 that flip the key trace
    static constexpr int kMaxAddressDigits = 3; // remote addresses run 0..999
    static constexpr int kSearchStep = 15;      // pixels between probes of the focus search
    static constexpr int kEdgeMargin = 10;      // probes closer to a side than this are skipped
    static constexpr int kPtzMargin = 40;       // the PTZ panel's search area reaches this far out
    static constexpr int kPressAnimationMs = 100; // OK on a button shows it pressed this long
    static constexpr int kPosBufferSize = 512;    // bytes of request 189's buffer
    static constexpr const char* kLibraryName = "dvrgui";

    // Device key values with a meaning of their own.
    enum DeviceKey : uint32_t {
        KeyMainViewAction = 3,
        KeyDigit0 = 7,
        KeyDigit9 = 16,
        KeyUp = 24,
        KeyDown = 25,
        KeyLeft = 26,
        KeyRight = 27,
        KeyOk = 28,
        KeyCountedPress = 45,
        KeyEscape = 49,
        KeyEscape2 = 78,
        KeySerialPtz = 89,
        KeyAddress = 90,
        KeyAddressEntry = 91,
        KeyBack = 96,
        KeyLimit = 150, // device keys are below this
    };
    enum Direction { Up, Down, Left, Right };

    struct Setup {
        std::shared_ptr<VyKeyLibrary> library; // null: no keys are read, lamps go nowhere
        VyKeyRecorderLink* link = nullptr;     // outlives the manager; null: no recorder
        bool startPollThread = true;           // tests poll with pollOnce() instead
    };
    // The setup instance() and the default constructor use; start-up sets it first.
    static void setDefaultSetup(const Setup& setup);

    // The live key manager, made with the default setup on first use.
    static VyKeyManager* instance();
    // Null when none is alive (never makes one).
    static VyKeyManager* liveInstance();

    VyKeyManager();
    explicit VyKeyManager(const Setup& setup);
    ~VyKeyManager() override;

    // One turn of the key poll thread without its sleep: blink, read a key and a
    // point-of-sale text, post the key. Thread-safe.
    void pollOnce();

    // ---- Key targets ----
    void setKeyTarget(VyKeyTarget::Role role, VyKeyTarget* target);
    VyKeyTarget* keyTarget(VyKeyTarget::Role role) const;
    // Clears every role the target holds (its destructor calls this).
    void forgetTarget(VyKeyTarget* target);

    // While set, only the Escape keys 49 and 78 are handled.
    static void setKeyRestriction(bool on);
    static bool keyRestriction();

    // ---- Indicators ----
    // Modes 1, 2, 3; anything else turns the lamps off.
    void setLampMode(int mode);
    void setDataLamp(int mode, uint32_t value);
    // The main view's status flags that make lamps blink in mode 3: bits 0 and 1 the 96/97
    // pair, bit 2 the 32/33 pair. Any thread.
    void setStatusFlags(uint32_t flags);
    int lampMode() const { return m_lampMode; }
    int hardwareClass() const;
    bool isBlinking() const;

    // ---- Tables ----
    // Device key value for a key code App forwards (notification 186); 0 = ignored.
    static uint32_t serviceKeyToDeviceKey(uint32_t serviceCode);
    // Line settings from parameter block 18 (bytes 2 and 3 crossed) and the multiplexer
    // choice (0 = key board, 1 = PTZ).
    static Key_485serconfig_t serialConfigFrom(const SerialKeyboardBlock& block, int* mux);
    // Hardware class from the board version word: 2 outside 0x40000000..0x7FFFFFFF.
    static int hardwareClassFor(uint32_t boardVersion);

    // ---- State ----
    uint32_t deviceId() const { return m_deviceId; }
    void setDeviceId(uint32_t id) { m_deviceId = id; }
    uint32_t remoteAddress() const { return m_remoteAddress; }
    bool addressEntry() const { return m_addressEntry; }
    const VyList<uint32_t>& channelDigits() const { return m_channelDigits; }
    const VyList<uint32_t>& addressDigits() const { return m_addressDigits; }
    // The hidden maintenance switch of key 45: every device key is logged while it is on.
    bool keyTrace() const { return m_keyTrace; }

    // The key focus; null once the widget is gone, whatever the state of its signals.
    VyWidget* keyFocusWidget() const { return m_keyFocus.data(); }
    // Gives the key focus (focus-in with reason 7, position recorded).
    void setKeyFocusWidget(VyWidget* widget);
    bool capturesArrows() const { return m_capturesArrows; }
    // The window the keys act on: the active modal window, else the topmost shown one.
    static VyWidget* activeWindow();
    // Whether the key navigation may stop on a widget (class, visible, enabled).
    static bool isFocusable(const VyWidget* widget);
    // The widget the focus search takes for a point (screen coordinates) of a window:
    // parts of tables and lists stand for the whole, null when nothing focusable is there.
    static VyWidget* focusableAt(VyWidget* window, VyPoint global);
    // Moves the key focus as an arrow key would when the widget keeps no arrows; false
    // when the search found nothing.
    bool moveFocus(Direction direction);

protected:
    void customEvent(VyEvent* e) override;

private:
    struct PollState;
    static void* pollThreadMain(void* state);

    void dispatch(uint32_t key, uint32_t origin);
    void handle(uint32_t key);
    void digit(int value);
    void typeDigit(int value);
    void selectChannel(int channel);
    bool liveViewHoldsKeys() const;
    void route(VyKeyTarget::Role role, uint32_t key);
    void countedPress();
    void serialPtz();
    void finishAddress();
    void escape();
    void clearChannelDigits() { m_channelDigits.clear(); }
    void clearSecondKeys() { m_secondKeys.clear(); }

    // Focus.
    void maintainFocus();
    void giveKeyFocus(VyWidget* widget);
    void recordPosition(VyWidget* widget);
    void recomputeCapture();
    bool giveArrow(int toolkitKey);
    void arrow(Direction direction, int toolkitKey);
    void activate();
    VyRect searchArea(VyWidget* window, Direction direction) const;
    VyWidget* probeRow(VyWidget* window, const VyRect& area, int x, int y) const;
    VyWidget* probe(VyWidget* window, const VyRect& area, int x, int y) const;
    VyWidget* firstFocusable(VyWidget* window) const;

    void sendLamp(int command);
    void sendLampData(int command, uint32_t data);

    std::shared_ptr<VyKeyLibrary> m_library;
    VyKeyRecorderLink* m_link;
    std::shared_ptr<PollState> m_poll;

    VyList<uint32_t> m_channelDigits;
    VyList<uint32_t> m_secondKeys;
    VyList<uint32_t> m_addressDigits;
    VyTimer* m_channelDigitTimer;
    VyTimer* m_secondKeyTimer;
    VyTimer* m_countedPressTimer;
    // Not owned; a target clears its roles when it dies (~VyKeyTarget).
    VyKeyTarget* m_targets[VyKeyTarget::RoleCount] = {};

    // The window rectangle of the last search (screen pixels, inclusive edges).
    int32_t m_searchLeft = -1;
    int32_t m_searchTop = -1;
    int32_t m_searchRight = -1;
    int32_t m_searchBottom = -1;
    VyPointer<VyWidget> m_keyFocus;
    int32_t m_focusLeft = -1;
    int32_t m_focusTop = -1;
    int32_t m_searchX = -1;
    int32_t m_searchY = -1;
    bool m_capturesArrows = false;
    bool m_keyFocusShown = true;
    bool m_liveHoldsKeys = false;

    uint32_t m_deviceId = 0;
    uint32_t m_remoteAddress = 0;
    bool m_addressEntry = false;
    int m_lampMode = 1;
    int m_countedPresses = 0;
    bool m_keyTrace = false;
};
