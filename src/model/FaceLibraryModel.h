#pragma once
// The face library as App keeps it: groups of faces with names, notes and pictures, the
// files on App's USB stick it imports from and exports to, and the recognitions App logged.
// Every edit is a request to App; on success the lists are fetched again, so what the
// screens show is what App holds, not what the GUI hoped it did.
//
// Pictures are fetched on first use and kept in a small cache (most recent first).
#include "model/FaceReply.h"
#include "protocol/FaceLibraryEdit.h"
#include "protocol/FacePicture.h"
#include "protocol/UsbFileEntry.h"
#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <list>
#include <map>
#include <optional>
#include <utility>
#include <vector>

class FaceLibraryModel : public VyObject {
    VY_OBJECT(FaceLibraryModel, VyObject)
public:
    using Group = FaceReply::Group;
    using Face = FaceReply::Face;

    // Most faces the GUI lists per group, and recognitions per report: bounds on memory
    // whatever totals App claims.
    static constexpr uint32_t kMaxFacesPerGroup = 2000;
    static constexpr uint32_t kMaxRecognitions = 20000;
    static constexpr size_t kPictureCacheSize = 256;

    explicit FaceLibraryModel(VyObject* parent = nullptr);
    ~FaceLibraryModel() override;

    // Fetches the groups and every group's faces; false (the old lists kept) when App's
    // answer is broken.
    bool refresh();
    bool loaded() const { return m_loaded; }
    const std::vector<Group>& groups() const { return m_groups; }
    // The faces of a group, empty for an unknown one.
    std::vector<Face> faces(uint32_t groupId) const;
    // Null for a face the library does not hold (after loading it once when never loaded).
    const Face* face(uint32_t faceId);

    // Edits: FaceEditAnswer::kOk or the reason App refused; `id` gets the new group or face,
    // `count` the faces exported or imported. A text that does not fit its field is refused
    // here with kMalformed, never cut.
    struct EditResult {
        uint32_t result = FaceEditAnswer::kMalformed;
        uint32_t id = 0;
        uint32_t count = 0;
        bool ok() const { return result == FaceEditAnswer::kOk; }
    };
    EditResult addGroup(const VyString& name);
    EditResult renameGroup(uint32_t groupId, const VyString& name);
    EditResult removeGroup(uint32_t groupId);
    EditResult addFaceFromSnapshot(uint32_t groupId, int channel, const VyString& name,
                                   const VyString& note);
    EditResult addFaceFromUsb(uint32_t groupId, const VyString& file, const VyString& name,
                              const VyString& note);
    EditResult updateFace(uint32_t faceId, uint32_t groupId, const VyString& name,
                          const VyString& note);
    EditResult removeFace(uint32_t faceId);
    EditResult exportGroup(uint32_t groupId, const VyString& file);
    // groupId 0: into the group named in the file.
    EditResult importFile(const VyString& file, uint32_t groupId = 0);
    // One file written on the stick (an attendance report).
    EditResult writeUsbFile(const VyString& name, const std::vector<uint8_t>& bytes);

    // `kind`: UsbFileListRequest::kPictures or kLibraries; nullopt on a broken answer.
    std::optional<FaceReply::UsbFiles> usbFiles(uint32_t kind);
    // `kind`: FacePictureRequest::kFace or kCapture; null when App has none or it is broken.
    VyBitmap picture(uint32_t kind, uint32_t id);
    // The same from the cache alone, for painting: asking App runs the event loop, which
    // must not happen inside a paint. A picture not cached yet is asked for right after,
    // and `picturesArrived` tells when the wanted ones are in.
    VyBitmap cachedPicture(uint32_t kind, uint32_t id);
    VySignal picturesArrived;
    // Recognitions of [from, to) on the channels of the mask, in App's order; at most
    // kMaxRecognitions (logged when cut).
    std::vector<FaceRecognition> recognitions(int64_t from, int64_t to, uint64_t channelMask);

    VySignal changed;

private:
    EditResult edit(FaceLibraryEdit& e, bool refreshAfter = true);
    bool fetchFaces(uint32_t groupId, std::vector<Face>& out);

    std::vector<Group> m_groups;
    std::map<uint32_t, std::vector<Face>> m_faces; // by group id
    bool m_loaded = false;
    // Most recently used first; bounded by kPictureCacheSize.
    std::list<std::pair<std::pair<uint32_t, uint32_t>, VyBitmap>> m_pictures;
    std::vector<std::pair<uint32_t, uint32_t>> m_wanted; // asked for while painting
    bool m_fetchPosted = false;
    void fetchWanted();
};
