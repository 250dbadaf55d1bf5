#include "ui/analytics/face/FaceLibraryPage.h"

#include "protocol/FacePicture.h"
#include "protocol/UsbFileEntry.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/analytics/face/FacePageRow.h"
#include "ui/analytics/face/FaceThumbnailGrid.h"

namespace {

constexpr const char* kStyleFile = "style/faceapps.ini";
constexpr const char* kLibraryExtension = ".flib"; // what App writes a group into
constexpr int kNameChars = 31;                     // the wire fields' room, zero byte aside
constexpr int kNoteChars = 63;

VyPushButton* button(uint32_t textId, VyWidget* parent) {
    return new VyPushButton(VyTranslation::tr(textId), parent);
}

} // namespace

FaceLibraryPage::FaceLibraryPage(FaceLibraryModel* library, int channelCount, VyWidget* parent)
    : VyWidget(parent)
    , m_library(library)
    , m_groupLabel(new VyLabel(this))
    , m_groups(new VyComboBox(this))
    , m_groupName(new VyLineEdit(this))
    , m_addGroup(button(TextId::Analytics::AddGroup, this))
    , m_rename(button(TextId::Analytics::Rename, this))
    , m_removeGroup(button(TextId::Analytics::Delete, this))
    , m_nameLabel(new VyLabel(this))
    , m_name(new VyLineEdit(this))
    , m_noteLabel(new VyLabel(this))
    , m_note(new VyLineEdit(this))
    , m_save(button(TextId::Settings::Save, this))
    , m_removeFace(button(TextId::Analytics::Delete, this))
    , m_channel(new VyComboBox(this))
    , m_addLive(button(TextId::Analytics::AddFromLive, this))
    , m_usbPictures(new VyComboBox(this))
    , m_addUsb(button(TextId::Analytics::AddFromUsb, this))
    , m_usbLibraries(new VyComboBox(this))
    , m_import(button(TextId::Analytics::Import, this))
    , m_export(button(TextId::Analytics::Export, this))
    , m_message(new VyLabel(this))
    , m_grid(new FaceThumbnailGrid(this)) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = UiLook::colourOr(ini, "FacePage/Background", m_background);
    m_groupLabel->setTextId(TextId::Analytics::Group);
    m_nameLabel->setTextId(TextId::Analytics::Name);
    m_noteLabel->setTextId(TextId::Analytics::Note);
    m_groupName->setMaxLength(kNameChars);
    m_name->setMaxLength(kNameChars);
    m_note->setMaxLength(kNoteChars);
    for (int c = 0; c < channelCount; ++c)
        m_channel->addItem(VyTranslation::tr(TextId::Analytics::ChannelNumber).arg(c + 1), c);
    m_grid->setSource([this](int i) {
        FaceThumbnailGrid::Cell cell;
        if (i < 0 || size_t(i) >= m_faces.size())
            return cell;
        // A copy: fetching the picture may wait for App, and the list may change meanwhile.
        const FaceLibraryModel::Face f = m_faces[size_t(i)];
        cell.picture =
            m_library ? m_library->cachedPicture(FacePictureRequest::kFace, f.id) : VyBitmap();
        cell.line1 = f.name;
        cell.line2 = f.note;
        return cell;
    });
    if (m_library != nullptr)
        connect(m_library, &m_library->picturesArrived, this, VY_SLOT(FaceLibraryPage, picturesIn));
    connect(m_groups, &m_groups->currentIndexChanged, this, VY_SLOT(FaceLibraryPage, groupChosen));
    connect(m_grid, &m_grid->currentChanged, this, VY_SLOT(FaceLibraryPage, faceChosen));
    connect(m_addGroup, &m_addGroup->clicked, this, VY_SLOT(FaceLibraryPage, addGroup));
    connect(m_rename, &m_rename->clicked, this, VY_SLOT(FaceLibraryPage, renameGroup));
    connect(m_removeGroup, &m_removeGroup->clicked, this, VY_SLOT(FaceLibraryPage, removeGroup));
    connect(m_save, &m_save->clicked, this, VY_SLOT(FaceLibraryPage, saveFace));
    connect(m_removeFace, &m_removeFace->clicked, this, VY_SLOT(FaceLibraryPage, removeFace));
    connect(m_addLive, &m_addLive->clicked, this, VY_SLOT(FaceLibraryPage, addFromLive));
    connect(m_addUsb, &m_addUsb->clicked, this, VY_SLOT(FaceLibraryPage, addFromUsb));
    connect(m_import, &m_import->clicked, this, VY_SLOT(FaceLibraryPage, importGroup));
    connect(m_export, &m_export->clicked, this, VY_SLOT(FaceLibraryPage, exportGroup));
    for (VyObject* child : children())
        static_cast<VyWidget*>(child)->show();
    reload();
}

FaceLibraryPage::~FaceLibraryPage() = default;

uint32_t FaceLibraryPage::titleTextId() {
    return TextId::Analytics::FaceLibrary;
}

uint32_t FaceLibraryPage::resultTextId(uint32_t result) {
    switch (result) {
    case FaceEditAnswer::kOk:
        return TextId::Analytics::Done;
    case FaceEditAnswer::kNoFaceFound:
        return TextId::Analytics::NoFace;
    case FaceEditAnswer::kFileError:
        return TextId::Analytics::FileError;
    case FaceEditAnswer::kFull:
        return TextId::Analytics::LibraryFull;
    default:
        return TextId::Analytics::Refused;
    }
}

void FaceLibraryPage::reload() {
    const uint32_t keep = currentGroupId();
    if (m_library != nullptr)
        m_library->refresh();
    fillGroups(keep);
    fillUsb();
}

void FaceLibraryPage::fillGroups(uint32_t keepGroupId) {
    m_groups->blockSignals(true);
    m_groups->clear();
    if (m_library != nullptr) {
        for (const FaceLibraryModel::Group& g : m_library->groups())
            m_groups->addItem(g.name, g.id);
    }
    const int keep = m_groups->findData(keepGroupId);
    m_groups->setCurrentIndex(keep >= 0 ? keep : 0);
    m_groups->blockSignals(false);
    showGroup();
}

void FaceLibraryPage::fillUsb() {
    m_usbPictures->clear();
    m_usbLibraries->clear();
    if (m_library == nullptr)
        return;
    if (auto pictures = m_library->usbFiles(UsbFileListRequest::kPictures)) {
        for (const auto& f : pictures->files)
            m_usbPictures->addItem(f.name);
    }
    if (auto libraries = m_library->usbFiles(UsbFileListRequest::kLibraries)) {
        for (const auto& f : libraries->files)
            m_usbLibraries->addItem(f.name);
    }
}

uint32_t FaceLibraryPage::currentGroupId() const {
    return m_groups->currentIndex() >= 0 ? uint32_t(m_groups->currentData()) : 0;
}

uint32_t FaceLibraryPage::currentFaceId() const {
    const int i = m_grid->currentIndex();
    return i >= 0 && size_t(i) < m_faces.size() ? m_faces[size_t(i)].id : 0;
}

void FaceLibraryPage::showGroup() {
    m_faces =
        m_library ? m_library->faces(currentGroupId()) : std::vector<FaceLibraryModel::Face>();
    m_groupName->setText(m_groups->currentText());
    m_grid->setCount(int(m_faces.size()));
    faceChosen();
}

void FaceLibraryPage::groupChosen() {
    showGroup();
}

void FaceLibraryPage::faceChosen() {
    const int i = m_grid->currentIndex();
    if (i < 0 || size_t(i) >= m_faces.size())
        return;
    m_name->setText(m_faces[size_t(i)].name);
    m_note->setText(m_faces[size_t(i)].note);
}

void FaceLibraryPage::report(const FaceLibraryModel::EditResult& r) {
    m_message->setText(VyTranslation::tr(resultTextId(r.result)));
}

void FaceLibraryPage::addGroup() {
    if (m_library == nullptr)
        return;
    const auto r = m_library->addGroup(m_groupName->text());
    report(r);
    if (r.ok())
        fillGroups(r.id);
}

void FaceLibraryPage::renameGroup() {
    if (m_library == nullptr || currentGroupId() == 0)
        return;
    const uint32_t group = currentGroupId();
    report(m_library->renameGroup(group, m_groupName->text()));
    fillGroups(group);
}

void FaceLibraryPage::removeGroup() {
    if (m_library == nullptr || currentGroupId() == 0)
        return;
    report(m_library->removeGroup(currentGroupId()));
    fillGroups(0);
}

void FaceLibraryPage::addFromLive() {
    if (m_library == nullptr || currentGroupId() == 0 || m_channel->currentIndex() < 0)
        return;
    report(m_library->addFaceFromSnapshot(currentGroupId(), int(m_channel->currentData()),
                                          m_name->text(), m_note->text()));
    fillGroups(currentGroupId());
}

void FaceLibraryPage::addFromUsb() {
    if (m_library == nullptr || currentGroupId() == 0 || m_usbPictures->currentIndex() < 0)
        return;
    report(m_library->addFaceFromUsb(currentGroupId(), m_usbPictures->currentText(), m_name->text(),
                                     m_note->text()));
    fillGroups(currentGroupId());
}

void FaceLibraryPage::saveFace() {
    if (m_library == nullptr || currentFaceId() == 0)
        return;
    const int at = m_grid->currentIndex();
    report(
        m_library->updateFace(currentFaceId(), currentGroupId(), m_name->text(), m_note->text()));
    fillGroups(currentGroupId());
    m_grid->setCurrentIndex(at);
}

void FaceLibraryPage::removeFace() {
    if (m_library == nullptr || currentFaceId() == 0)
        return;
    report(m_library->removeFace(currentFaceId()));
    fillGroups(currentGroupId());
}

void FaceLibraryPage::exportGroup() {
    if (m_library == nullptr || currentGroupId() == 0)
        return;
    report(m_library->exportGroup(currentGroupId(), m_groups->currentText() + kLibraryExtension));
    fillUsb();
}

void FaceLibraryPage::importGroup() {
    if (m_library == nullptr || m_usbLibraries->currentIndex() < 0)
        return;
    const auto r = m_library->importFile(m_usbLibraries->currentText());
    report(r);
    fillGroups(r.ok() ? r.id : currentGroupId());
}

VyString FaceLibraryPage::message() const {
    return m_message->text();
}

void FaceLibraryPage::paintEvent(VyPaintEvent*) {
    canvas()->fillRect(rect(), m_background);
}

void FaceLibraryPage::resizeEvent(VyResizeEvent*) {
    FacePageRow::place(0, {{m_groupLabel, 90},
                           {m_groups, 260},
                           {m_groupName, 260},
                           {m_addGroup, 160},
                           {m_rename, 140},
                           {m_removeGroup, 140}});
    FacePageRow::place(1, {{m_nameLabel, 90},
                           {m_name, 260},
                           {m_noteLabel, 90},
                           {m_note, 360},
                           {m_save, 140},
                           {m_removeFace, 140}});
    FacePageRow::place(2, {{m_channel, 200},
                           {m_addLive, 240},
                           {m_usbPictures, 300},
                           {m_addUsb, 200},
                           {m_usbLibraries, 260},
                           {m_import, 140},
                           {m_export, 140}});
    FacePageRow::place(3, {{m_message, 1200}});
    const int top = FacePageRow::top(4);
    m_grid->setGeometry(0, top, width(), std::max(0, height() - top));
}

void FaceLibraryPage::picturesIn() {
    m_grid->update();
}
