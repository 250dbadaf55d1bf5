#pragma once
// App's face applications on a PC: a face library of groups and people, synthetic face
// pictures drawn from shapes (no photographs), a USB stick held in memory, and recognitions
// and search hits that follow from a seed, so every run with the same seed shows the same
// people arriving and leaving at the same times.
//
//     SimFaces faces(seed, channels);
//     faces.attach(server);            // registers the MainType::Analytics face handlers
//
// Console command (SimCommands.h runs it through runCommand):
//     face <channel 1..n> <faceId>     App recognises that face now (FaceSubType::RecognitionNote)
#include "protocol/FaceEntry.h"
#include "protocol/FaceGroupEntry.h"
#include "protocol/FaceLibraryEdit.h"
#include "protocol/FacePicture.h"
#include "protocol/FaceRecognition.h"
#include "protocol/FaceSearchRequest.h"
#include "protocol/UsbFileEntry.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <vector>

class SimServer;

class SimFaces {
public:
    static constexpr uint32_t kPictureWidth = 64; // pixels of a synthetic face
    static constexpr uint32_t kPictureHeight = 80;
    static constexpr uint32_t kMaxFacesPerGroup = 500;
    static constexpr int64_t kSecondsPerDay = 86400;
    // Days before and after a request's range that hold no recognitions: a search over a
    // year costs at most this many days of generation.
    static constexpr int64_t kMaxSearchDays = 62;

    SimFaces(uint32_t seed, int channels);

    struct Face {
        uint32_t id = 0;
        uint32_t groupId = 0;
        std::string name;
        std::string note;
        uint32_t look = 0; // drives the synthetic picture
    };
    struct Group {
        uint32_t id = 0;
        std::string name;
    };

    FaceEditAnswer edit(const FaceLibraryEdit& e);
    std::vector<Group> groups() const;
    std::vector<Face> faces(uint32_t groupId) const;
    // The recognitions of one day (days since 1970-01-01, local time), in time order.
    std::vector<FaceRecognition> recognitionsOfDay(int64_t day) const;
    // Recognitions of [from, to) on the mask's channels, capped at kMaxSearchDays days.
    std::vector<FaceRecognition> recognitions(int64_t from, int64_t to, uint64_t mask) const;
    std::vector<FaceSearchHit> search(const FaceSearchRequest& r) const;
    // FacePictureHeader + RGB565 pixels; empty for an unknown picture.
    std::vector<uint8_t> picture(uint32_t kind, uint32_t id) const;
    // The files of a kind on the stick.
    std::vector<UsbFileEntry> usbFiles(uint32_t kind) const;
    bool writeUsb(const std::string& name, const uint8_t* data, size_t size);
    bool hasUsbFile(const std::string& name) const;
    std::string usbFile(const std::string& name) const;

    // The reply body to one request of the family; false for a request that is malformed.
    bool answer(uint16_t subType, const std::vector<uint8_t>& in, std::vector<uint8_t>* out);
    void attach(SimServer& server);
    bool runCommand(const std::vector<std::string>& words);

private:
    static uint32_t mix(uint32_t a, uint32_t b);
    uint32_t addFace(uint32_t groupId, const std::string& name, const std::string& note,
                     uint32_t look);
    bool groupExists(uint32_t id) const;
    size_t faceCount(uint32_t groupId) const;

    uint32_t m_seed;
    int m_channels;
    SimServer* m_server = nullptr;
    mutable std::mutex m_mutex; // guards everything below
    std::vector<Group> m_groups;
    std::vector<Face> m_faces;
    std::map<std::string, std::string> m_usb; // file name -> contents
    uint32_t m_nextGroup = 1;
    uint32_t m_nextFace = 1;
};
