#pragma once
// One page of the settings window. A page declares the parameter blocks it shows (in its
// constructor, on blocks()); opening it fetches those blocks and nothing else, Apply writes
// back the ones the user changed, Cancel puts the controls back to what App holds, and
// App's "parameter changed" for one of its blocks refreshes the page while keeping what the
// user has changed or is typing.
//
// Opening runs requests to App, which run the event loop while they wait: the window
// holding the page may be closed meanwhile. Callers hold a VyPointer across open().
#include "model/SettingsBlockSet.h"
#include "toolkit/widgets/CWidget.h"

#include <cstdint>
#include <vector>

class VySpinBox;
class VyCheckBox;
class VyLineEdit;

class SettingsPage : public CWidget {
    VY_OBJECT(SettingsPage, CWidget)
public:
    uint32_t titleId() const { return m_titleId; }
    SettingsBlockSet& blocks() { return m_blocks; }

    // Fetches the page's blocks and shows them.
    void open();
    bool isOpened() const { return m_opened; }
    // The window left the page while it was still fetching: open() stops after the block
    // it waits for.
    void abandon() { m_abandoned = true; }
    // apply()'s answers other than the count of blocks sent.
    static constexpr int kInvalid = -1; // a field cannot be sent: nothing was
    static constexpr int kRefused = -2; // App refused a request of the page's (it says why)
    // Takes the controls' values and sends the changed blocks, then the page's requests;
    // answers how many blocks were sent, kInvalid or kRefused.
    int apply();
    // The text ID of the first field whose value cannot be sent, 0 when all can.
    virtual uint32_t invalidField() { return 0; }
    void cancel();
    // Puts the factory values into the controls; nothing is sent before Apply.
    virtual void restoreDefaults() {}
    bool hasUnsavedChanges();
    // App changed block `number`; true when the page holds it and was refreshed.
    bool parameterChanged(uint32_t number);

    // The field's value clamped into lo..hi; a value outside gets a log line naming the
    // field, so that a damaged block is never shown as garbage.
    static int clampForDisplay(int value, int lo, int hi, const char* field);

    // What goes back into a field shown through clampForDisplay: App's own value while the
    // control still shows it clamped (the user left it alone), else the control's.
    static int fromControl(int saved, int lo, int hi, int control);

    // A text field of a record: read never past its end, written cut at a character
    // boundary and NUL-terminated within `size` bytes.
    static VyString fieldText(const char* field, size_t size);
    static void storeText(char* field, size_t size, const VyString& text);

    // Emitted when the user changes a control (the window enables Apply on it).
    VySignal edited;

protected:
    SettingsPage(uint32_t titleId, VyWidget* parent);

    // Blocks (edit copies) into controls.
    virtual void showValues() = 0;
    // Controls into the blocks' edit copies.
    virtual void collectValues() = 0;
    // Before showValues after the blocks were fetched for the first time: a page may lay out
    // controls that depend on what App sent.
    virtual void opened() {}
    // After collectValues, before the changed blocks are sent: fields a set must carry.
    virtual void beforeWrite() {}
    // After Apply sent the changed blocks (`sent` of them). The page may be gone when a
    // nested loop runs in here: callers hold a VyPointer.
    virtual void written(int sent) { (void)sent; }
    // Cancel put the blocks back to what App holds; the controls are shown again next.
    virtual void cancelled() {}
    // Changes App takes as requests of their own, not as blocks (an account's password),
    // sent after the blocks; false when App refused them, and the page shows why itself.
    // Waits for App: the page may be gone afterwards (callers hold a VyPointer).
    virtual bool sendRequests() { return true; }

    // Set without disturbing digits the user is typing into it.
    static void showSpin(VySpinBox* box, int value);
    // A form row: the text on the left, the control beside it; rows are stacked from the
    // top in the order added and laid out again on every resize. Answers the control.
    VyWidget* addRow(uint32_t textId, VyWidget* control);
    // Height of the rows so far (the page puts larger pieces below them).
    int rowsBottom() const;
    void resizeEvent(VyResizeEvent* e) override;

    // A row editing a text field of the page's record (at `offset`, `size` bytes with its
    // NUL); secret fields echo as dots. The fields are shown and collected together.
    VyLineEdit* addTextRow(uint32_t textId, size_t offset, size_t size, bool secret = false);
    void showTexts(const void* record);
    // A field the user left as App has it keeps App's bytes (also what follows its NUL).
    void collectTexts(void* record, const void* saved);

    // Connects a control's change signal to `edited`.
    void watch(VyObject* control, const VySignal* signal);
    void markEdited() { emitSignal(this, &edited); }

private:
    uint32_t m_titleId;
    SettingsBlockSet m_blocks;
    bool m_opened = false;
    bool m_abandoned = false;
    struct Row {
        VyWidget* label;
        VyWidget* control;
    };
    std::vector<Row> m_rows; // children, owned through the widget tree
    struct TextField {
        VyLineEdit* edit;
        size_t offset;
        size_t size;
    };
    std::vector<TextField> m_texts;
};
