#include "model/FaceLibraryModel.h"

#include "toolkit/core/VySingleShotTimer.h"

#include "model/RecorderLink.h"
#include "model/UsbFileWriter.h"
#include "protocol/FaceEntry.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "runtime/VyLog.h"

#include <algorithm>
#include <cstring>

namespace {

bool setField(char* field, size_t bytes, const VyString& text) {
    return FaceLibraryEdit::setText(field, bytes, text.c_str(), size_t(text.size()));
}

} // namespace

FaceLibraryModel::FaceLibraryModel(VyObject* parent)
    : VyObject(parent) {}

FaceLibraryModel::~FaceLibraryModel() = default;

bool FaceLibraryModel::fetchFaces(uint32_t groupId, std::vector<Face>& out) {
    RecorderLink* link = RecorderLink::instance();
    out.clear();
    FaceListRequest request;
    request.groupId = groupId;
    request.max = FaceListRequest::kMaxPerPage;
    std::vector<uint8_t> reply;
    while (request.first < kMaxFacesPerGroup) {
        link->request(MainType::Analytics, FaceSubType::FaceList, &request, sizeof request, reply);
        auto page = FaceReply::parseFaces(reply.data(), reply.size(), request.max);
        if (!page)
            return false;
        out.insert(out.end(), page->items.begin(), page->items.end());
        request.first += uint32_t(page->items.size());
        // An empty page ends it too: App claiming more than it sends must not loop forever.
        if (page->items.empty() || request.first >= page->total)
            break;
    }
    if (out.size() > kMaxFacesPerGroup) {
        VY_GUI_LOG("face group %u: more than %u faces, the rest not listed\n", groupId,
                   kMaxFacesPerGroup);
        out.resize(kMaxFacesPerGroup);
    }
    return true;
}

bool FaceLibraryModel::refresh() {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return false;
    std::vector<uint8_t> reply;
    link->request(MainType::Analytics, FaceSubType::GroupList, nullptr, 0, reply);
    auto groups = FaceReply::parseGroups(reply.data(), reply.size());
    if (!groups)
        return false;
    std::map<uint32_t, std::vector<Face>> faces;
    for (const Group& g : *groups) {
        if (!fetchFaces(g.id, faces[g.id]))
            return false;
    }
    m_groups = std::move(*groups);
    m_faces = std::move(faces);
    m_loaded = true;
    emitSignal(this, &changed);
    return true;
}

std::vector<FaceLibraryModel::Face> FaceLibraryModel::faces(uint32_t groupId) const {
    auto it = m_faces.find(groupId);
    return it == m_faces.end() ? std::vector<Face>() : it->second;
}

const FaceLibraryModel::Face* FaceLibraryModel::face(uint32_t faceId) {
    if (!m_loaded)
        refresh();
    for (const auto& [group, list] : m_faces) {
        for (const Face& f : list) {
            if (f.id == faceId)
                return &f;
        }
    }
    return nullptr;
}

FaceLibraryModel::EditResult FaceLibraryModel::edit(FaceLibraryEdit& e, bool refreshAfter) {
    EditResult result;
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return result;
    std::vector<uint8_t> reply;
    link->request(MainType::Analytics, FaceSubType::LibraryEdit, &e, sizeof e, reply);
    auto answer = FaceReply::parseEditAnswer(reply.data(), reply.size());
    if (!answer)
        return result;
    result.result = answer->result;
    result.id = answer->id;
    result.count = answer->count;
    if (!result.ok())
        VY_GUI_LOG("face library: action %u refused by App with %u\n", e.action, result.result);
    else if (refreshAfter)
        refresh();
    return result;
}

FaceLibraryModel::EditResult FaceLibraryModel::addGroup(const VyString& name) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kAddGroup;
    if (name.isEmpty() || !setField(e.name, sizeof e.name, name))
        return {};
    return edit(e);
}

FaceLibraryModel::EditResult FaceLibraryModel::renameGroup(uint32_t groupId, const VyString& name) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kRenameGroup;
    e.groupId = groupId;
    if (name.isEmpty() || !setField(e.name, sizeof e.name, name))
        return {};
    return edit(e);
}

FaceLibraryModel::EditResult FaceLibraryModel::removeGroup(uint32_t groupId) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kRemoveGroup;
    e.groupId = groupId;
    return edit(e);
}

FaceLibraryModel::EditResult FaceLibraryModel::addFaceFromSnapshot(uint32_t groupId, int channel,
                                                                   const VyString& name,
                                                                   const VyString& note) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kAddFaceFromSnapshot;
    e.groupId = groupId;
    if (channel < 0 || !setField(e.name, sizeof e.name, name) ||
        !setField(e.note, sizeof e.note, note))
        return {};
    e.channel = uint32_t(channel);
    return edit(e);
}

FaceLibraryModel::EditResult FaceLibraryModel::addFaceFromUsb(uint32_t groupId,
                                                              const VyString& file,
                                                              const VyString& name,
                                                              const VyString& note) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kAddFaceFromFile;
    e.groupId = groupId;
    if (file.isEmpty() || !setField(e.file, sizeof e.file, file) ||
        !setField(e.name, sizeof e.name, name) || !setField(e.note, sizeof e.note, note))
        return {};
    return edit(e);
}

FaceLibraryModel::EditResult FaceLibraryModel::updateFace(uint32_t faceId, uint32_t groupId,
                                                          const VyString& name,
                                                          const VyString& note) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kUpdateFace;
    e.faceId = faceId;
    e.groupId = groupId;
    if (!setField(e.name, sizeof e.name, name) || !setField(e.note, sizeof e.note, note))
        return {};
    return edit(e);
}

FaceLibraryModel::EditResult FaceLibraryModel::removeFace(uint32_t faceId) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kRemoveFace;
    e.faceId = faceId;
    return edit(e);
}

FaceLibraryModel::EditResult FaceLibraryModel::exportGroup(uint32_t groupId, const VyString& file) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kExportGroup;
    e.groupId = groupId;
    if (file.isEmpty() || !setField(e.file, sizeof e.file, file))
        return {};
    // Exporting changes nothing in the library.
    return edit(e, false);
}

FaceLibraryModel::EditResult FaceLibraryModel::importFile(const VyString& file, uint32_t groupId) {
    FaceLibraryEdit e;
    e.action = FaceLibraryEdit::kImportFile;
    e.groupId = groupId;
    if (file.isEmpty() || !setField(e.file, sizeof e.file, file))
        return {};
    return edit(e);
}

FaceLibraryModel::EditResult FaceLibraryModel::writeUsbFile(const VyString& name,
                                                            const std::vector<uint8_t>& bytes) {
    const FaceEditAnswer answer = UsbFileWriter::write(name, bytes);
    EditResult result;
    result.result = answer.result;
    result.count = answer.count;
    return result;
}

std::optional<FaceReply::UsbFiles> FaceLibraryModel::usbFiles(uint32_t kind) {
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return std::nullopt;
    UsbFileListRequest request;
    request.kind = kind;
    std::vector<uint8_t> reply;
    link->request(MainType::Analytics, FaceSubType::UsbFiles, &request, sizeof request, reply);
    return FaceReply::parseUsbFiles(reply.data(), reply.size());
}

VyBitmap FaceLibraryModel::cachedPicture(uint32_t kind, uint32_t id) {
    const std::pair<uint32_t, uint32_t> key{kind, id};
    for (const auto& entry : m_pictures)
        if (entry.first == key)
            return entry.second;
    if (std::find(m_wanted.begin(), m_wanted.end(), key) == m_wanted.end() &&
        m_wanted.size() < kPictureCacheSize)
        m_wanted.push_back(key);
    if (!m_fetchPosted) {
        m_fetchPosted = true;
        VySingleShotTimer::singleShot(0, this, VY_SLOT(FaceLibraryModel, fetchWanted));
    }
    return {};
}

void FaceLibraryModel::fetchWanted() {
    m_fetchPosted = false;
    std::vector<std::pair<uint32_t, uint32_t>> wanted;
    wanted.swap(m_wanted);
    for (const auto& key : wanted)
        picture(key.first, key.second);
    if (!wanted.empty())
        emitSignal(this, &picturesArrived);
}

VyBitmap FaceLibraryModel::picture(uint32_t kind, uint32_t id) {
    const std::pair<uint32_t, uint32_t> key{kind, id};
    for (auto it = m_pictures.begin(); it != m_pictures.end(); ++it) {
        if (it->first == key) {
            m_pictures.splice(m_pictures.begin(), m_pictures, it);
            return it->second;
        }
    }
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr)
        return {};
    FacePictureRequest request;
    request.kind = kind;
    request.id = id;
    std::vector<uint8_t> reply;
    link->request(MainType::Analytics, FaceSubType::Picture, &request, sizeof request, reply);
    VyBitmap bitmap = FaceReply::parsePicture(reply.data(), reply.size());
    // A broken picture is remembered too, so a grid repaint does not ask again and again.
    m_pictures.emplace_front(key, bitmap);
    if (m_pictures.size() > kPictureCacheSize)
        m_pictures.pop_back();
    return bitmap;
}

std::vector<FaceRecognition> FaceLibraryModel::recognitions(int64_t from, int64_t to,
                                                            uint64_t channelMask) {
    std::vector<FaceRecognition> out;
    RecorderLink* link = RecorderLink::instance();
    if (link == nullptr || from >= to)
        return out;
    RecognitionListRequest request;
    request.from = from;
    request.to = to;
    request.channelMask = channelMask;
    request.max = RecognitionListRequest::kMaxPerPage;
    std::vector<uint8_t> reply;
    while (out.size() < kMaxRecognitions) {
        request.first = uint32_t(out.size());
        link->request(MainType::Analytics, FaceSubType::Recognitions, &request, sizeof request,
                      reply);
        auto page = FaceReply::parseRecognitions(reply.data(), reply.size(), request.max);
        if (!page)
            break;
        out.insert(out.end(), page->items.begin(), page->items.end());
        if (page->items.empty() || out.size() >= page->total)
            break;
    }
    if (out.size() > kMaxRecognitions) {
        VY_GUI_LOG("recognitions: more than %u, the rest left out\n", kMaxRecognitions);
        out.resize(kMaxRecognitions);
    }
    return out;
}
