#pragma once
// The face library: one group at a time, its faces as a grid of pictures with name and
// note. Groups are added, renamed and deleted with the name typed beside the group list;
// faces are added from a live channel's picture or from a picture on the USB stick, edited
// and deleted; a group goes to the stick as one file and comes back from it.
#include "model/FaceLibraryModel.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>

class FaceThumbnailGrid;
class VyComboBox;
class VyLabel;
class VyLineEdit;
class VyPushButton;

class FaceLibraryPage : public VyWidget {
    VY_OBJECT(FaceLibraryPage, VyWidget)
public:
    FaceLibraryPage(FaceLibraryModel* library, int channelCount, VyWidget* parent = nullptr);
    ~FaceLibraryPage() override;

    // The page's name in the analytics window's page list.
    static uint32_t titleTextId();

    // The text that says how an edit went (FaceEditAnswer's result).
    static uint32_t resultTextId(uint32_t result);

    // Rereads the library and the stick.
    void reload();
    uint32_t currentGroupId() const;
    // The face the grid has current, 0 for none.
    uint32_t currentFaceId() const;

    void addGroup();
    void renameGroup();
    void removeGroup();
    void addFromLive();
    void addFromUsb();
    void saveFace();
    void removeFace();
    void exportGroup();
    void importGroup();

    VyComboBox* groupBox() const { return m_groups; }
    VyLineEdit* groupNameEdit() const { return m_groupName; }
    VyLineEdit* nameEdit() const { return m_name; }
    VyLineEdit* noteEdit() const { return m_note; }
    VyComboBox* channelBox() const { return m_channel; }
    VyComboBox* usbPictureBox() const { return m_usbPictures; }
    VyComboBox* usbLibraryBox() const { return m_usbLibraries; }
    FaceThumbnailGrid* grid() const { return m_grid; }
    VyString message() const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void picturesIn();
    void fillGroups(uint32_t keepGroupId);
    void fillUsb();
    void showGroup();
    void faceChosen();
    void groupChosen();
    void report(const FaceLibraryModel::EditResult& r);

    FaceLibraryModel* m_library;
    std::vector<FaceLibraryModel::Face> m_faces; // of the group shown
    VyLabel* m_groupLabel;                       // child
    VyComboBox* m_groups;                        // child
    VyLineEdit* m_groupName;                     // child
    VyPushButton* m_addGroup;                    // child
    VyPushButton* m_rename;                      // child
    VyPushButton* m_removeGroup;                 // child
    VyLabel* m_nameLabel;                        // child
    VyLineEdit* m_name;                          // child
    VyLabel* m_noteLabel;                        // child
    VyLineEdit* m_note;                          // child
    VyPushButton* m_save;                        // child
    VyPushButton* m_removeFace;                  // child
    VyComboBox* m_channel;                       // child
    VyPushButton* m_addLive;                     // child
    VyComboBox* m_usbPictures;                   // child
    VyPushButton* m_addUsb;                      // child
    VyComboBox* m_usbLibraries;                  // child
    VyPushButton* m_import;                      // child
    VyPushButton* m_export;                      // child
    VyLabel* m_message;                          // child
    FaceThumbnailGrid* m_grid;                   // child
    vyargb m_background = 0xFF1E2024;
};
