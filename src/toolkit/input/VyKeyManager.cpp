#include "toolkit/input/VyKeyManager.h"

#include "platform/keys/VyQueuedKeyLibrary.h"
#include "protocol/IpcMsgHeader.h"
#include "protocol/SerialPtzCommand.h"
#include "protocol/ServiceKeyNotice.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyTimer.h"
#include "toolkit/events/DvrKeyEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/input/VyKeyRecorderLink.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <iterator>
#include <mutex>
#include <pthread.h>
#include <utility>

namespace {

// Service key code 128..173 -> device key value; 0 = ignored.
const uint8_t kServiceKeys[ServiceKeyNotice::kLastCode - ServiceKeyNotice::kFirstCode + 1] = {
    17, 45, 43, 0,  0, 10, 9, 8, 39, 13, 12, 11, 41, 16, 15, 14, // 128..143
    0,  0,  7,  68, 0, 24, 0, 0, 0,  27, 25, 26, 40, 0,  28, 0,  // 144..159
    0,  29, 29, 30, 0, 0,  0, 0, 44, 57, 0,  0,  73, 3,          // 160..173
};

VyKeyManager::Setup g_defaultSetup;
VyKeyManager* g_live = nullptr;
// The one instance() made because nobody had made one; it gives way to the next manager made
// explicitly (the models' set, a test), handing it the registered targets.
VyKeyManager* g_lazy = nullptr;
std::atomic<bool> g_keyRestriction{false};

// The screens the action table sends keys to.
VyKeyTarget::Role targetRoleOf(uint32_t key) {
    struct Route {
        uint32_t first;
        uint32_t last;
        VyKeyTarget::Role role;
    };
    static const Route kRoutes[] = {
        {3, 3, VyKeyTarget::MainView},         {29, 38, VyKeyTarget::MainView},
        {47, 48, VyKeyTarget::MainView},       {56, 57, VyKeyTarget::MainView},
        {60, 60, VyKeyTarget::MainView},       {67, 67, VyKeyTarget::MainView},
        {73, 73, VyKeyTarget::MainView},       {74, 74, VyKeyTarget::TaskBar},
        {76, 77, VyKeyTarget::TaskBar},        {83, 83, VyKeyTarget::TaskBar},
        {93, 95, VyKeyTarget::TaskBar},        {39, 44, VyKeyTarget::PlaybackWindow},
        {79, 82, VyKeyTarget::PlaybackWindow}, {61, 66, VyKeyTarget::VideoScreen},
    };
    for (const Route& r : kRoutes)
        if (key >= r.first && key <= r.last)
            return r.role;
    return VyKeyTarget::RoleCount;
}

bool isDigitKey(uint32_t key) {
    return key >= VyKeyManager::KeyDigit0 && key <= VyKeyManager::KeyDigit9;
}

// Lamp commands of the front panel; their meaning is the panel's.
constexpr unsigned char kLampMode1[] = {33, 97, 17, 33};
constexpr unsigned char kLampMode2 = 18;
constexpr unsigned char kLampMode3 = 16;
constexpr unsigned char kLampOff = 40;
constexpr unsigned char kDataLamp = 20;
constexpr unsigned char kDataLampOff = 21;
constexpr unsigned int kDataLampMode2 = 4;
constexpr unsigned int kDataLampMode3 = 6;
// The blinking pairs: [0] on even cycles, [1] on odd ones; the second is the resting state.
constexpr unsigned char kBlinkMain[2] = {17, 18};
constexpr unsigned char kBlinkStatus[2] = {96, 97};
constexpr unsigned char kBlinkThird[2] = {32, 33};

} // namespace

// What the key poll thread shares with the manager. The thread is detached and lives as long
// as this block; the manager's destructor takes the receiver away under the mutex, so a key
// read after that is dropped instead of posted to a dead object. Lock order: this mutex
// before the posted-event queue's.
struct VyKeyManager::PollState {
    std::shared_ptr<VyKeyLibrary> library;
    VyKeyRecorderLink* link = nullptr;
    bool pointOfSale = false;
    std::mutex mutex; // guards receiver and stop
    std::condition_variable wake;
    VyKeyManager* receiver = nullptr;
    bool stop = false;
    std::atomic<bool> blink{false};
    std::atomic<int> hardwareClass{1};
    std::atomic<uint32_t> statusFlags{0};
    // Blink phase counters, poll thread only (pollOnce from a test holds cycleMutex).
    std::mutex cycleMutex;
    uint8_t phase[3] = {0, 0, 0};

    void cycle();
    void blinkStep();
};

void VyKeyManager::PollState::blinkStep() {
    if (!blink.load())
        return;
    const uint32_t flags = statusFlags.load();
    library->KEYBOARD_SEND_CMD(kBlinkMain[phase[0]]);
    phase[0] ^= 1;
    if (flags & 3u) {
        library->KEYBOARD_SEND_CMD(kBlinkStatus[phase[1]]);
        phase[1] ^= 1;
    } else {
        library->KEYBOARD_SEND_CMD(kBlinkStatus[1]);
    }
    if (flags & 4u) {
        library->KEYBOARD_SEND_CMD(kBlinkThird[phase[2]]);
        phase[2] ^= 1;
    } else {
        library->KEYBOARD_SEND_CMD(kBlinkThird[1]);
    }
}

void VyKeyManager::PollState::cycle() {
    std::lock_guard<std::mutex> cycleLock(cycleMutex);
    blinkStep();
    const uint32_t key = library->GetAllKeyValue_keytype();
    if (pointOfSale && link != nullptr) {
        char text[VyKeyLibrary::kMaxPosText];
        const int length = library->GetAllKeyValue_StringLen(text);
        if (length > 0 && length <= VyKeyLibrary::kMaxPosText) {
            uint8_t buffer[kPosBufferSize] = {};
            std::memcpy(buffer, text, size_t(length)); // the zeros behind it terminate it
            link->sendPointOfSaleText(buffer, uint32_t(length) + 1);
        }
    }
    if (key == 0)
        return;
    std::lock_guard<std::mutex> lock(mutex);
    if (receiver != nullptr)
        VyApplication::postEvent(receiver, std::make_unique<DvrKeyEvent>(key));
}

void* VyKeyManager::pollThreadMain(void* arg) {
    // The thread owns one reference to the shared block for its whole life.
    std::shared_ptr<PollState>* owned = static_cast<std::shared_ptr<PollState>*>(arg);
    std::shared_ptr<PollState> state = std::move(*owned);
    delete owned;
    std::unique_lock<std::mutex> lock(state->mutex);
    while (!state->stop) {
        // Sleeping on the condition lets a test's manager end the thread at once.
        state->wake.wait_for(lock, std::chrono::milliseconds(kPollIntervalMs));
        if (state->stop)
            break;
        lock.unlock();
        state->cycle();
        lock.lock();
    }
    return nullptr;
}

void VyKeyManager::setDefaultSetup(const Setup& setup) {
    g_defaultSetup = setup;
}

VyKeyManager* VyKeyManager::instance() {
    if (g_live == nullptr)
        g_lazy = new VyKeyManager(g_defaultSetup); // registers itself
    return g_live;
}

VyKeyManager* VyKeyManager::liveInstance() {
    return g_live;
}

VyKeyManager::VyKeyManager()
    : VyKeyManager(g_defaultSetup) {}

VyKeyManager::VyKeyManager(const Setup& setup)
    : m_library(setup.library ? setup.library : std::make_shared<VyQueuedKeyLibrary>())
    , m_link(setup.link)
    , m_poll(std::make_shared<PollState>())
    , m_channelDigitTimer(nullptr)
    , m_secondKeyTimer(nullptr)
    , m_countedPressTimer(nullptr) {
    if (g_live != nullptr) {
        VY_ASSERT(g_live == g_lazy); // one key manager at a time, unless made on demand
        VyKeyManager* lazy = std::exchange(g_lazy, nullptr);
        std::copy(std::begin(lazy->m_targets), std::end(lazy->m_targets), std::begin(m_targets));
        delete lazy;
    }
    g_live = this;
    // 1. State cleared by the member initialisers; the key focus is shown, the search
    // rectangle's position starts at -1.
    m_keyFocusShown = true;

    // 2. The name the front panel is opened with.
    KeyBoardparam_t param;
    std::strncpy(param.name, kLibraryName, KeyBoardparam_t::kMaxName);

    // 3. The serial keyboard, or the plain front panel.
    const VyKeyRecorderLink::Features features =
        m_link ? m_link->features() : VyKeyRecorderLink::Features{};
    if (features.serialKeyboard) {
        int mux = 1;
        param.serial = serialConfigFrom(m_link->serialKeyboard(), &mux);
        if (features.pointOfSale && features.pointOfSaleOn)
            m_library->POS_select485();
        m_library->InitVersionAndFrontBoard(&param, nullptr);
        if (features.serialKeyMux)
            m_library->VyDVR_Ptz_ExternalSerialKey_Mux(mux);
        m_library->VyDVR_SetKeyboard_Baud(&param.serial);
    } else {
        param.serial = Key_485serconfig_t{1, 0, 0, 0};
        m_library->InitVersionAndFrontBoard(&param, nullptr);
    }

    // 4. The device's address on the remote bus and the remote's stored address.
    if (m_link) {
        const DeviceParamBlock device = m_link->deviceParams();
        m_deviceId = device.deviceId;
        m_remoteAddress = device.remoteControlAddress;
    }
    m_library->VyDVR_COM_SetDeviceID(m_deviceId);

    // 5. The lamp hardware class.
    m_poll->library = m_library;
    m_poll->link = m_link;
    m_poll->pointOfSale = features.pointOfSale && features.pointOfSaleOn;
    m_poll->hardwareClass = hardwareClassFor(m_library->boardVersion());
    m_poll->receiver = this;

    // 6. The key poll thread: detached, system scope.
    if (setup.library && setup.startPollThread) {
        pthread_attr_t attr;
        pthread_attr_init(&attr);
        pthread_attr_setdetachstate(&attr, PTHREAD_CREATE_DETACHED);
        pthread_attr_setscope(&attr, PTHREAD_SCOPE_SYSTEM);
        auto* arg = new std::shared_ptr<PollState>(m_poll);
        pthread_t thread;
        if (pthread_create(&thread, &attr, &pollThreadMain, arg) != 0) {
            delete arg;
            vyFrameworkLog("key poll thread not started !!!\n");
        }
        pthread_attr_destroy(&attr);
    }

    // 7. The three single-shot timers.
    m_channelDigitTimer = new VyTimer(this);
    m_secondKeyTimer = new VyTimer(this);
    m_countedPressTimer = new VyTimer(this);
    m_channelDigitTimer->setSingleShot(true);
    m_channelDigitTimer->setInterval(kDigitTimeoutMs);
    m_secondKeyTimer->setSingleShot(true);
    m_secondKeyTimer->setInterval(kDigitTimeoutMs);
    m_countedPressTimer->setSingleShot(true);
    m_countedPressTimer->setInterval(kCountedPressMs);
    connect(m_channelDigitTimer, &m_channelDigitTimer->timeout, this,
            VY_SLOT(VyKeyManager, clearChannelDigits));
    connect(m_secondKeyTimer, &m_secondKeyTimer->timeout, this,
            VY_SLOT(VyKeyManager, clearSecondKeys));
}

VyKeyManager::~VyKeyManager() {
    {
        std::lock_guard<std::mutex> lock(m_poll->mutex);
        m_poll->receiver = nullptr;
        m_poll->stop = true;
    }
    m_poll->wake.notify_all();
    if (g_live == this)
        g_live = nullptr;
    if (g_lazy == this)
        g_lazy = nullptr;
}

void VyKeyManager::pollOnce() {
    m_poll->cycle();
}

// ---- Targets and restriction ----

VyKeyTarget::~VyKeyTarget() {
    if (VyKeyManager* keys = VyKeyManager::liveInstance())
        keys->forgetTarget(this);
}

void VyKeyManager::setKeyTarget(VyKeyTarget::Role role, VyKeyTarget* target) {
    if (role >= 0 && role < VyKeyTarget::RoleCount)
        m_targets[role] = target;
}

VyKeyTarget* VyKeyManager::keyTarget(VyKeyTarget::Role role) const {
    return role >= 0 && role < VyKeyTarget::RoleCount ? m_targets[role] : nullptr;
}

void VyKeyManager::forgetTarget(VyKeyTarget* target) {
    for (VyKeyTarget*& t : m_targets)
        if (t == target)
            t = nullptr;
}

void VyKeyManager::setKeyRestriction(bool on) {
    g_keyRestriction = on;
}

bool VyKeyManager::keyRestriction() {
    return g_keyRestriction.load();
}

// ---- Tables ----

uint32_t VyKeyManager::serviceKeyToDeviceKey(uint32_t serviceCode) {
    if (serviceCode < ServiceKeyNotice::kFirstCode || serviceCode > ServiceKeyNotice::kLastCode)
        return 0;
    return kServiceKeys[serviceCode - ServiceKeyNotice::kFirstCode];
}

Key_485serconfig_t VyKeyManager::serialConfigFrom(const SerialKeyboardBlock& block, int* mux) {
    Key_485serconfig_t c;
    c.baudIndex = block.baudIndex;
    c.dataBits = block.dataBits;
    // The library's field order differs from the block's: byte 2 lands in the third field
    // and byte 3 in the second.
    c.parity = block.parity;
    c.stopBits = block.stopBits;
    if (mux != nullptr)
        *mux = block.keyMux == 1 ? 0 : 1;
    return c;
}

int VyKeyManager::hardwareClassFor(uint32_t boardVersion) {
    return boardVersion >= 0x40000000u && boardVersion <= 0x7FFFFFFFu ? 1 : 2;
}

// ---- Dispatch ----

void VyKeyManager::customEvent(VyEvent* e) {
    if (e->type() != UiEventType::DvrKey)
        return;
    e->accept();
    if (auto* key = dynamic_cast<DvrKeyEvent*>(e)) {
        dispatch(key->keyValue(), key->origin());
        return;
    }
    // App's key notification, forwarded by the UiManager with its message block.
    const void* block = static_cast<CEvent*>(e)->data();
    if (block == nullptr)
        return;
    const auto* bytes = static_cast<const uint8_t*>(block);
    const IpcMsgHeader h = ipcDecodeHeader(bytes);
    const ServiceKeyNotice notice = ServiceKeyNotice::decode(bytes + kIpcHeaderSize, h.dataLen);
    const uint32_t key = serviceKeyToDeviceKey(h.msgValue);
    if (key == 0) {
        VY_DEBUG("keys", "service key %u ignored", h.msgValue);
        return;
    }
    dispatch(key, notice.origin);
    VY_DEBUG("keys", "service key %u: device key %u origin %u handled", h.msgValue, key,
             notice.origin);
}

void VyKeyManager::dispatch(uint32_t key, uint32_t origin) {
    if (m_keyTrace)
        vyFrameworkLog("key %u origin %u\n", key, origin);
    if (origin == DvrKeyEvent::AddressedRemote) {
        if (key == KeyAddressEntry) {
            m_addressEntry = true;
            m_addressDigits.clear();
            return;
        }
        if (m_addressEntry && isDigitKey(key)) {
            if (m_addressDigits.size() >= kMaxAddressDigits)
                m_addressDigits.removeFirst();
            m_addressDigits.append(key);
        } else if (m_addressEntry && key == KeyOk) {
            finishAddress();
            return;
        }
        if (m_deviceId != 0 && m_deviceId != m_remoteAddress)
            return;
    }
    handle(key);
}

void VyKeyManager::finishAddress() {
    uint32_t address = 0;
    for (uint32_t key : m_addressDigits)
        address = address * 10 + (key - KeyDigit0);
    m_remoteAddress = address;
    m_addressDigits.clear();
    m_addressEntry = false;
    if (m_link) {
        DeviceParamBlock device = m_link->deviceParams();
        device.remoteControlAddress = address;
        m_link->storeDeviceParams(device);
    }
}

void VyKeyManager::handle(uint32_t key) {
    if (key == 0 || key >= KeyLimit)
        return;
    if (keyRestriction() && key != KeyEscape && key != KeyEscape2)
        return;
    m_liveHoldsKeys = liveViewHoldsKeys();
    maintainFocus();

    if (isDigitKey(key)) {
        digit(int(key - KeyDigit0));
    } else if (key >= 17 && key <= 23) {
        selectChannel(int(key) - 7);
    } else if (key >= 102 && key <= 149) {
        selectChannel(int(key) - 85);
    } else {
        switch (key) {
        case KeyUp:
            arrow(Up, VyKeyEvent::KeyUp);
            break;
        case KeyDown:
            arrow(Down, VyKeyEvent::KeyDown);
            break;
        case KeyLeft:
            arrow(Left, VyKeyEvent::KeyLeft);
            break;
        case KeyRight:
            arrow(Right, VyKeyEvent::KeyRight);
            break;
        case KeyOk:
            activate();
            break;
        case KeyEscape:
        case KeyEscape2:
        case KeyBack:
            escape();
            break;
        case KeyCountedPress:
            countedPress();
            break;
        case KeySerialPtz:
            serialPtz();
            break;
        default:
            // 90 and 91 from other sources, and keys without an action, find no role.
            route(targetRoleOf(key), key);
            break;
        }
    }

    // A key press counts as input and hides the cursor until the mouse moves again.
    if (VyApplication* app = VyApplication::instance()) {
        app->noteInput();
        if (app->screen() != nullptr && app->screen()->cursor() != nullptr)
            app->screen()->cursor()->hideUntilMouseMoves();
    }
}

bool VyKeyManager::liveViewHoldsKeys() const {
    const VyKeyTarget* mainView = m_targets[VyKeyTarget::MainView];
    if (mainView == nullptr)
        return false;
    const VyWidget* active = activeWindow();
    return active == nullptr || active == mainView->keyWindow();
}

void VyKeyManager::route(VyKeyTarget::Role role, uint32_t key) {
    if (role < 0 || role >= VyKeyTarget::RoleCount)
        return;
    if (VyKeyTarget* target = m_targets[role])
        target->keyAction(key);
}

void VyKeyManager::digit(int value) {
    if (!m_liveHoldsKeys) {
        typeDigit(value);
        return;
    }
    m_channelDigits.append(uint32_t(KeyDigit0 + value));
    const int channels = m_link ? m_link->channelCount() : 0;
    if (m_channelDigits.size() == 1) {
        m_channelDigitTimer->start();
        if (value >= 1 && value <= channels)
            selectChannel(value);
        else
            typeDigit(value);
        return;
    }
    int number = 0;
    for (uint32_t key : m_channelDigits)
        number = number * 10 + int(key - KeyDigit0);
    vyFrameworkLog("Composite Key value:%d\n", number);
    m_channelDigits.clear();
    if (number > 0 && number <= channels)
        selectChannel(number);
}

void VyKeyManager::typeDigit(int value) {
    VyWidget* focus = m_keyFocus.data();
    if (focus == nullptr)
        return;
    const char text[2] = {char('0' + value), '\0'};
    VyApplication::postEvent(focus, std::make_unique<VyKeyEvent>(
                                        VyEvent::KeyPress, VyKeyEvent::KeyDigit0 + value, text));
}

void VyKeyManager::selectChannel(int channel) {
    const int channels = m_link ? m_link->channelCount() : 0;
    if (!m_liveHoldsKeys || channel < 1 || channel > channels)
        return;
    if (VyKeyTarget* mainView = m_targets[VyKeyTarget::MainView])
        mainView->selectChannel(channel);
}

void VyKeyManager::countedPress() {
    // Presses each within the window of the one before form a run; the run that reaches
    // the count flips the switch and starts over.
    m_countedPresses = m_countedPressTimer->isActive() ? m_countedPresses + 1 : 1;
    m_countedPressTimer->start();
    if (m_countedPresses < kCountedPresses)
        return;
    m_countedPresses = 0;
    m_keyTrace = !m_keyTrace;
    vyFrameworkLog("key trace %s\n", m_keyTrace ? "on" : "off");
}

void VyKeyManager::serialPtz() {
    PTZ_keyvaluet command;
    if (m_library->VyDVR_HAL_ReadSerialPtzCmd(&command) == -1)
        return;
    if (command.command < SerialPtzCommand::kFirstCommand ||
        command.command > SerialPtzCommand::kLastCommand || m_link == nullptr)
        return;
    m_link->sendPtzCommand(command);
}

void VyKeyManager::escape() {
    VyWidget* focus = m_keyFocus.data();
    if (focus == nullptr)
        return;
    VyKeyEvent e(VyEvent::KeyPress, VyKeyEvent::KeyEscape);
    VyApplication::sendEvent(focus, &e);
    // A control that has no use for Escape leaves it to its window (a dialog closes).
    VyWidget* window = m_keyFocus ? m_keyFocus->window() : nullptr;
    if (!e.isAccepted() && window != nullptr && window != m_keyFocus.data()) {
        VyKeyEvent toWindow(VyEvent::KeyPress, VyKeyEvent::KeyEscape);
        VyApplication::sendEvent(window, &toWindow);
    }
}

// ---- Indicators ----

void VyKeyManager::sendLamp(int command) {
    m_library->KEYBOARD_SEND_CMD(static_cast<unsigned char>(command));
}

void VyKeyManager::sendLampData(int command, uint32_t data) {
    m_library->KEYBOARD_SEND_CMDDATA(static_cast<unsigned char>(command), data);
}

void VyKeyManager::setLampMode(int mode) {
    m_poll->blink = false;
    m_lampMode = mode;
    switch (mode) {
    case 1:
        for (unsigned char c : kLampMode1)
            sendLamp(c);
        break;
    case 2:
        sendLamp(kLampMode2);
        break;
    case 3:
        if (m_poll->hardwareClass.load() == 1)
            sendLamp(kLampMode3);
        else
            m_poll->blink = true;
        break;
    default:
        sendLamp(kLampOff);
        break;
    }
}

void VyKeyManager::setDataLamp(int mode, uint32_t value) {
    (void)value; // the data word is the panel's choice per mode, not the caller's
    switch (mode) {
    case 1:
        sendLamp(kDataLamp);
        break;
    case 2:
        sendLampData(kDataLamp, kDataLampMode2);
        break;
    case 3:
        sendLampData(kDataLamp, kDataLampMode3);
        break;
    default:
        sendLampData(kDataLamp, 0);
        sendLamp(kDataLampOff);
        break;
    }
}

void VyKeyManager::setStatusFlags(uint32_t flags) {
    m_poll->statusFlags = flags;
}

int VyKeyManager::hardwareClass() const {
    return m_poll->hardwareClass.load();
}

bool VyKeyManager::isBlinking() const {
    return m_poll->blink.load();
}
