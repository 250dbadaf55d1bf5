#include "SimFaces.h"

#include "SimRecorder.h"
#include "SimServer.h"
#include "protocol/FaceReplyHeader.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <sstream>

namespace {

constexpr int64_t kHour = 3600;
constexpr int64_t kMinute = 60;
constexpr uint32_t kStaffGroup = 1;
constexpr int kStrangersPerDay = 3;
constexpr uint32_t kFaceIdBits = 12; // a capture id holds the face id in its top bits
constexpr const char* kLibraryExtension = ".flib";

const char* const kFirstNames[] = {"Anna",  "Ben",  "Carla", "David", "Elena", "Farid",
                                   "Greta", "Hugo", "Ines",  "Jonas", "Kira",  "Luca",
                                   "Maya",  "Nils", "Olga",  "Pavel", "Rosa",  "Sami"};
const char* const kLastNames[] = {"Berg", "Costa",  "Dahl",   "Engel", "Fox",  "Gruber",
                                  "Holm", "Ivanov", "Jansen", "Kowal", "Lind", "Moreno"};

// Muted RGB565-friendly colours: skin tones, hair, backgrounds and clothes.
const uint32_t kSkin[] = {0xF1C9A5, 0xE0AC69, 0xC68642, 0x8D5524, 0xFFDBAC};
const uint32_t kHair[] = {0x2C1B10, 0x6A4E23, 0xB89778, 0x111111, 0x8C8C8C, 0xA0522D};
const uint32_t kBack[] = {0x5B6B7F, 0x7F8C6B, 0x6B5B7F, 0x8C7F6B, 0x4F6F6F};
const uint32_t kCloth[] = {0x1F3A5F, 0x5F1F1F, 0x2F5F2F, 0x404040, 0x6F5F1F};

bool textOf(const char* field, size_t size, std::string* out) {
    const void* end = std::memchr(field, 0, size);
    if (end == nullptr)
        return false;
    out->assign(field, size_t(static_cast<const char*>(end) - field));
    return true;
}

bool endsWith(const std::string& s, const std::string& tail) {
    return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

bool isPictureFile(const std::string& name) {
    return endsWith(name, ".jpg") || endsWith(name, ".png");
}

int64_t floorDiv(int64_t a, int64_t b) {
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0);
}

uint16_t rgb565(uint32_t rgb) {
    return uint16_t(((rgb >> 19) & 0x1F) << 11 | ((rgb >> 10) & 0x3F) << 5 | ((rgb >> 3) & 0x1F));
}

uint32_t shade(uint32_t rgb, int delta) {
    uint32_t out = 0;
    for (int s = 0; s < 24; s += 8) {
        const int c = std::clamp(int((rgb >> s) & 0xFF) + delta, 0, 255);
        out |= uint32_t(c) << s;
    }
    return out;
}

} // namespace

SimFaces::SimFaces(uint32_t seed, int channels)
    : m_seed(seed)
    , m_channels(std::max(1, channels)) {
    m_groups.push_back({m_nextGroup++, "Staff"});
    m_groups.push_back({m_nextGroup++, "Visitors"});
    for (uint32_t i = 0; i < 12; ++i) {
        const uint32_t h = mix(seed, i);
        addFace(kStaffGroup, std::string(kFirstNames[(h + i) % 18]) + " " + kLastNames[h % 12],
                i % 5 == 4 ? "Night shift" : "", mix(h, 7));
    }
    for (uint32_t i = 0; i < 4; ++i) {
        const uint32_t h = mix(seed, 100 + i);
        addFace(2, std::string(kFirstNames[h % 18]) + " " + kLastNames[(h >> 8) % 12], "Contractor",
                mix(h, 9));
    }
    m_usb["visitor_anna.jpg"] = "synthetic";
    m_usb["visitor_ben.jpg"] = "synthetic";
    m_usb["contractor_carla.png"] = "synthetic";
    m_usb["empty_corridor_noface.jpg"] = "synthetic";
    m_usb["damaged.jpg"] = "";
}

uint32_t SimFaces::mix(uint32_t a, uint32_t b) {
    uint32_t h = a * 0x9E3779B1u ^ (b + 0x7F4A7C15u + (a << 6) + (a >> 2));
    h ^= h >> 16;
    h *= 0x85EBCA6Bu;
    h ^= h >> 13;
    h *= 0xC2B2AE35u;
    return h ^ (h >> 16);
}

uint32_t SimFaces::addFace(uint32_t groupId, const std::string& name, const std::string& note,
                           uint32_t look) {
    Face f;
    f.id = m_nextFace++ & ((1u << kFaceIdBits) - 1);
    f.groupId = groupId;
    f.name = name;
    f.note = note;
    f.look = look;
    m_faces.push_back(f);
    return f.id;
}

bool SimFaces::groupExists(uint32_t id) const {
    return std::any_of(m_groups.begin(), m_groups.end(),
                       [id](const Group& g) { return g.id == id; });
}

size_t SimFaces::faceCount(uint32_t groupId) const {
    return size_t(std::count_if(m_faces.begin(), m_faces.end(),
                                [groupId](const Face& f) { return f.groupId == groupId; }));
}

std::vector<SimFaces::Group> SimFaces::groups() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_groups;
}

std::vector<SimFaces::Face> SimFaces::faces(uint32_t groupId) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Face> out;
    for (const Face& f : m_faces) {
        if (f.groupId == groupId)
            out.push_back(f);
    }
    return out;
}

FaceEditAnswer SimFaces::edit(const FaceLibraryEdit& e) {
    FaceEditAnswer a;
    std::string name, note, file;
    if (!textOf(e.name, sizeof e.name, &name) || !textOf(e.note, sizeof e.note, &note) ||
        !textOf(e.file, sizeof e.file, &file)) {
        a.result = FaceEditAnswer::kMalformed;
        return a;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    auto face = std::find_if(m_faces.begin(), m_faces.end(),
                             [&](const Face& f) { return f.id == e.faceId; });
    auto group = std::find_if(m_groups.begin(), m_groups.end(),
                              [&](const Group& g) { return g.id == e.groupId; });
    const bool needsGroup =
        e.action == FaceLibraryEdit::kRenameGroup || e.action == FaceLibraryEdit::kRemoveGroup ||
        e.action == FaceLibraryEdit::kAddFaceFromSnapshot ||
        e.action == FaceLibraryEdit::kAddFaceFromFile || e.action == FaceLibraryEdit::kUpdateFace ||
        e.action == FaceLibraryEdit::kExportGroup;
    if (needsGroup && group == m_groups.end()) {
        a.result = FaceEditAnswer::kNoSuchGroup;
        return a;
    }
    switch (e.action) {
    case FaceLibraryEdit::kAddGroup:
        if (name.empty())
            a.result = FaceEditAnswer::kMalformed;
        else if (m_groups.size() >= FaceGroupListHeader::kMaxGroups)
            a.result = FaceEditAnswer::kFull;
        else
            m_groups.push_back({a.id = m_nextGroup++, name});
        break;
    case FaceLibraryEdit::kRenameGroup:
        if (name.empty())
            a.result = FaceEditAnswer::kMalformed;
        else
            group->name = name;
        break;
    case FaceLibraryEdit::kRemoveGroup:
        m_faces.erase(std::remove_if(m_faces.begin(), m_faces.end(),
                                     [&](const Face& f) { return f.groupId == e.groupId; }),
                      m_faces.end());
        m_groups.erase(group);
        break;
    case FaceLibraryEdit::kAddFaceFromSnapshot:
    case FaceLibraryEdit::kAddFaceFromFile: {
        const bool fromFile = e.action == FaceLibraryEdit::kAddFaceFromFile;
        if (name.empty() || (!fromFile && e.channel >= uint32_t(m_channels))) {
            a.result = FaceEditAnswer::kMalformed;
        } else if (fromFile &&
                   (!m_usb.count(file) || !isPictureFile(file) || m_usb[file].empty())) {
            a.result = FaceEditAnswer::kFileError;
        } else if (fromFile && file.find("noface") != std::string::npos) {
            a.result = FaceEditAnswer::kNoFaceFound;
        } else if (faceCount(e.groupId) >= kMaxFacesPerGroup) {
            a.result = FaceEditAnswer::kFull;
        } else {
            uint32_t look = mix(m_seed, fromFile ? uint32_t(std::hash<std::string>()(file))
                                                 : e.channel * 131u + m_nextFace);
            a.id = addFace(e.groupId, name, note, look);
        }
        break;
    }
    case FaceLibraryEdit::kUpdateFace:
        if (face == m_faces.end())
            a.result = FaceEditAnswer::kNoSuchFace;
        else if (name.empty())
            a.result = FaceEditAnswer::kMalformed;
        else {
            face->name = name;
            face->note = note;
            face->groupId = e.groupId;
        }
        break;
    case FaceLibraryEdit::kRemoveFace:
        if (face == m_faces.end())
            a.result = FaceEditAnswer::kNoSuchFace;
        else
            m_faces.erase(face);
        break;
    case FaceLibraryEdit::kExportGroup: {
        if (!endsWith(file, kLibraryExtension) || file.find('/') != std::string::npos) {
            a.result = FaceEditAnswer::kFileError;
            break;
        }
        // One line for the group, then one per face: name, note, look, tab-separated.
        std::string text = "group\t" + group->name + "\n";
        for (const Face& f : m_faces) {
            if (f.groupId == e.groupId) {
                text += f.name + "\t" + f.note + "\t" + std::to_string(f.look) + "\n";
                ++a.count;
            }
        }
        m_usb[file] = text;
        break;
    }
    case FaceLibraryEdit::kImportFile: {
        auto it = m_usb.find(file);
        if (it == m_usb.end() || !endsWith(file, kLibraryExtension)) {
            a.result = FaceEditAnswer::kFileError;
            break;
        }
        std::istringstream in(it->second);
        std::string line;
        uint32_t target = e.groupId;
        if (!std::getline(in, line) || line.compare(0, 6, "group\t") != 0) {
            a.result = FaceEditAnswer::kFileError;
            break;
        }
        if (target != 0 && !groupExists(target)) {
            a.result = FaceEditAnswer::kNoSuchGroup;
            break;
        }
        if (target == 0) {
            const std::string groupName = line.substr(6);
            auto named = std::find_if(m_groups.begin(), m_groups.end(),
                                      [&](const Group& g) { return g.name == groupName; });
            if (named != m_groups.end()) {
                target = named->id;
            } else if (m_groups.size() >= FaceGroupListHeader::kMaxGroups) {
                a.result = FaceEditAnswer::kFull;
                break;
            } else {
                target = m_nextGroup++;
                m_groups.push_back({target, groupName});
            }
        }
        while (std::getline(in, line) && faceCount(target) < kMaxFacesPerGroup) {
            std::istringstream fields(line);
            std::string faceName, faceNote, look;
            if (!std::getline(fields, faceName, '\t') || faceName.empty())
                continue;
            std::getline(fields, faceNote, '\t');
            std::getline(fields, look, '\t');
            addFace(target, faceName, faceNote, uint32_t(std::strtoul(look.c_str(), nullptr, 10)));
            ++a.count;
        }
        a.id = target;
        break;
    }
    default:
        a.result = FaceEditAnswer::kMalformed;
        break;
    }
    return a;
}

std::vector<FaceRecognition> SimFaces::recognitionsOfDay(int64_t day) const {
    std::vector<Face> faces;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        faces = m_faces;
    }
    std::vector<FaceRecognition> out;
    const int64_t midnight = day * kSecondsPerDay;
    const int weekday = int(((day + 4) % 7 + 7) % 7); // 1970-01-01 was a Thursday; 0 Sunday
    auto add = [&](int64_t t, uint32_t faceId, uint32_t h, int index) {
        FaceRecognition r;
        r.time = t;
        r.channel = h % uint32_t(m_channels);
        r.faceId = faceId;
        r.similarity = faceId == FaceRecognition::kStranger ? 0 : 75 + (h >> 8) % 25;
        r.captureId =
            (faceId << (32 - kFaceIdBits)) | uint32_t((day & 0xFFFF) << 4) | uint32_t(index & 0xF);
        out.push_back(r);
    };
    for (const Face& f : faces) {
        const uint32_t h = mix(m_seed ^ f.look, uint32_t(day));
        if (f.groupId != kStaffGroup) {
            // A visitor comes now and then, once.
            if (h % 4 == 0)
                add(midnight + 10 * kHour + (h >> 4) % (6 * kHour), f.id, h, 0);
            continue;
        }
        const bool nightShift = f.note == "Night shift";
        const bool yesterdayWorked = ((weekday + 6) % 7) >= 1 && ((weekday + 6) % 7) <= 5;
        if (nightShift && yesterdayWorked) // the end of the shift that started yesterday
            add(midnight + 6 * kHour + mix(h, 3) % (40 * kMinute), f.id, mix(h, 4), 1);
        if (weekday == 0 || weekday == 6)
            continue;
        if (nightShift) {
            add(midnight + 22 * kHour + (h >> 3) % (30 * kMinute), f.id, h, 2);
        } else {
            add(midnight + 8 * kHour + (h >> 3) % (50 * kMinute), f.id, h, 3);
            add(midnight + 12 * kHour + (h >> 9) % (60 * kMinute), f.id, mix(h, 5), 4);
            add(midnight + 17 * kHour + (h >> 14) % (70 * kMinute), f.id, mix(h, 6), 5);
        }
    }
    for (int i = 0; i < kStrangersPerDay; ++i) {
        const uint32_t h = mix(m_seed + uint32_t(i), uint32_t(day) * 7u);
        add(midnight + 7 * kHour + h % (12 * kHour), FaceRecognition::kStranger, h, 8 + i);
    }
    std::sort(out.begin(), out.end(),
              [](const FaceRecognition& a, const FaceRecognition& b) { return a.time < b.time; });
    return out;
}

std::vector<FaceRecognition> SimFaces::recognitions(int64_t from, int64_t to, uint64_t mask) const {
    std::vector<FaceRecognition> out;
    if (from >= to)
        return out;
    const int64_t first = floorDiv(from, kSecondsPerDay);
    const int64_t last = std::min(floorDiv(to - 1, kSecondsPerDay), first + kMaxSearchDays - 1);
    for (int64_t day = first; day <= last; ++day) {
        for (const FaceRecognition& r : recognitionsOfDay(day)) {
            if (r.time >= from && r.time < to && r.channel < 64 && (mask >> r.channel & 1))
                out.push_back(r);
        }
    }
    return out;
}

std::vector<FaceSearchHit> SimFaces::search(const FaceSearchRequest& r) const {
    uint32_t wanted = r.sourceId;
    if (r.sourceKind == FaceSearchRequest::kSnapshot) {
        // The person in front of that camera now: one of the staff, chosen by the channel.
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_faces.empty() || r.sourceId >= uint32_t(m_channels))
            return {};
        wanted = m_faces[mix(m_seed, r.sourceId) % m_faces.size()].id;
    }
    std::vector<FaceSearchHit> out;
    for (const FaceRecognition& rec : recognitions(r.from, r.to, r.channelMask)) {
        // A stranger resembles the face a little, by a fixed amount per capture.
        const uint32_t similarity =
            rec.faceId == wanted ? rec.similarity : 20 + mix(rec.captureId, wanted) % 60;
        if (similarity < r.threshold)
            continue;
        FaceSearchHit hit;
        hit.time = rec.time;
        hit.channel = rec.channel;
        hit.similarity = similarity;
        hit.captureId = rec.captureId;
        out.push_back(hit);
    }
    return out;
}

std::vector<uint8_t> SimFaces::picture(uint32_t kind, uint32_t id) const {
    uint32_t look = 0;
    int shift = 0, light = 0;
    if (kind == FacePictureRequest::kFace) {
        std::lock_guard<std::mutex> lock(m_mutex);
        auto f = std::find_if(m_faces.begin(), m_faces.end(),
                              [id](const Face& x) { return x.id == id; });
        if (f == m_faces.end())
            return {};
        look = f->look;
    } else if (kind == FacePictureRequest::kCapture) {
        const uint32_t faceId = id >> (32 - kFaceIdBits);
        std::lock_guard<std::mutex> lock(m_mutex);
        auto f = std::find_if(m_faces.begin(), m_faces.end(),
                              [faceId](const Face& x) { return x.id == faceId; });
        look = faceId != 0 && f != m_faces.end() ? f->look : mix(m_seed, id);
        // A camera sees the face a little off centre and in its own light.
        shift = int(mix(id, 1) % 7) - 3;
        light = int(mix(id, 2) % 41) - 20;
    } else {
        return {};
    }
    FacePictureHeader head;
    head.width = uint16_t(kPictureWidth);
    head.height = uint16_t(kPictureHeight);
    head.format = FacePictureHeader::kRgb565;
    head.dataBytes = kPictureWidth * kPictureHeight * 2;
    std::vector<uint8_t> out(sizeof head + head.dataBytes);
    std::memcpy(out.data(), &head, sizeof head);
    const uint32_t skin = shade(kSkin[look % 5], light), hair = kHair[(look >> 3) % 6];
    const uint32_t back = shade(kBack[(look >> 6) % 5], light), cloth = kCloth[(look >> 9) % 5];
    const int cx = 32 + shift, cy = 38, rx = 17 + int(look >> 12) % 5, ry = 23;
    const int hairLine = cy - ry + 6 + int(look >> 15) % 6;
    uint8_t* px = out.data() + sizeof head;
    for (int y = 0; y < int(kPictureHeight); ++y) {
        for (int x = 0; x < int(kPictureWidth); ++x) {
            const double dx = double(x - cx) / rx, dy = double(y - cy) / ry;
            uint32_t c = back;
            const double shoulders = double(x - cx) / 30.0;
            if (y > 64 && shoulders * shoulders + double(y - 92) * (y - 92) / 784.0 <= 1.0)
                c = cloth;
            if (dx * dx + dy * dy <= 1.0) {
                c = y < hairLine ? hair : skin;
                const int ex = std::abs(x - cx) - 7, ey = y - (cy - 2);
                if (ex * ex + ey * ey <= 4)
                    c = 0x202020;
                if (y == cy + 11 && std::abs(x - cx) <= 5)
                    c = 0x8B3A3A;
                if (std::abs(x - cx) <= 1 && y > cy && y < cy + 6)
                    c = shade(skin, -30);
            }
            const uint16_t v = rgb565(c);
            px[0] = uint8_t(v);
            px[1] = uint8_t(v >> 8);
            px += 2;
        }
    }
    return out;
}

std::vector<UsbFileEntry> SimFaces::usbFiles(uint32_t kind) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<UsbFileEntry> out;
    for (const auto& [name, bytes] : m_usb) {
        const bool wanted = kind == UsbFileListRequest::kPictures
                                ? isPictureFile(name)
                                : endsWith(name, kLibraryExtension);
        if (!wanted || name.size() >= UsbFileEntry::kNameBytes ||
            out.size() >= UsbFileListHeader::kMaxFiles)
            continue;
        UsbFileEntry e;
        std::memcpy(e.name, name.data(), name.size());
        e.bytes = uint32_t(bytes.size());
        out.push_back(e);
    }
    return out;
}

bool SimFaces::writeUsb(const std::string& name, const uint8_t* data, size_t size) {
    if (name.empty() || name.find('/') != std::string::npos)
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_usb[name].assign(reinterpret_cast<const char*>(data), size);
    return true;
}

bool SimFaces::hasUsbFile(const std::string& name) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_usb.count(name) != 0;
}

std::string SimFaces::usbFile(const std::string& name) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    auto it = m_usb.find(name);
    return it == m_usb.end() ? std::string() : it->second;
}

namespace {

template <typename Record>
std::vector<uint8_t> pageBody(const std::vector<Record>& all, uint32_t first, uint32_t max,
                              uint32_t limit) {
    FaceReplyHeader head;
    head.total = uint32_t(all.size());
    const size_t begin = std::min<size_t>(first, all.size());
    head.count = uint32_t(std::min<size_t>(std::min(max, limit), all.size() - begin));
    std::vector<uint8_t> body(sizeof head + head.count * sizeof(Record));
    std::memcpy(body.data(), &head, sizeof head);
    if (head.count != 0)
        std::memcpy(body.data() + sizeof head, all.data() + begin, head.count * sizeof(Record));
    return body;
}

} // namespace

bool SimFaces::answer(uint16_t subType, const std::vector<uint8_t>& in, std::vector<uint8_t>* out) {
    auto take = [&in](auto* record) {
        if (in.size() != sizeof *record)
            return false;
        std::memcpy(record, in.data(), sizeof *record);
        return true;
    };
    auto put = [out](const auto& record) {
        const auto* p = reinterpret_cast<const uint8_t*>(&record);
        out->assign(p, p + sizeof record);
    };
    switch (subType) {
    case FaceSubType::GroupList: {
        if (!in.empty())
            return false;
        FaceGroupListHeader head;
        out->assign(sizeof head, 0);
        for (const Group& g : groups()) {
            FaceGroupEntry e;
            e.groupId = g.id;
            e.faceCount = uint32_t(faces(g.id).size());
            std::strncpy(e.name, g.name.c_str(), sizeof e.name - 1);
            const auto* p = reinterpret_cast<const uint8_t*>(&e);
            out->insert(out->end(), p, p + sizeof e);
            ++head.count;
        }
        std::memcpy(out->data(), &head, sizeof head);
        return true;
    }
    case FaceSubType::FaceList: {
        FaceListRequest r;
        if (!take(&r))
            return false;
        std::vector<FaceEntry> all;
        for (const Face& f : faces(r.groupId)) {
            FaceEntry e;
            e.faceId = f.id;
            e.groupId = f.groupId;
            std::strncpy(e.name, f.name.c_str(), sizeof e.name - 1);
            std::strncpy(e.note, f.note.c_str(), sizeof e.note - 1);
            all.push_back(e);
        }
        *out = pageBody(all, r.first, r.max, FaceListRequest::kMaxPerPage);
        return true;
    }
    case FaceSubType::LibraryEdit: {
        FaceLibraryEdit e;
        if (!take(&e))
            return false;
        put(edit(e));
        return true;
    }
    case FaceSubType::Picture: {
        FacePictureRequest r;
        if (!take(&r))
            return false;
        *out = picture(r.kind, r.id);
        return true;
    }
    case FaceSubType::UsbFiles: {
        UsbFileListRequest r;
        if (!take(&r))
            return false;
        const auto files = usbFiles(r.kind);
        UsbFileListHeader head;
        head.count = uint32_t(files.size());
        out->assign(sizeof head + files.size() * sizeof(UsbFileEntry), 0);
        std::memcpy(out->data(), &head, sizeof head);
        if (!files.empty())
            std::memcpy(out->data() + sizeof head, files.data(), files.size() * sizeof files[0]);
        return true;
    }
    case FaceSubType::Search: {
        FaceSearchRequest r;
        if (!take(&r))
            return false;
        *out = pageBody(search(r), r.first, r.max, FaceSearchRequest::kMaxPerPage);
        return true;
    }
    case FaceSubType::Recognitions: {
        RecognitionListRequest r;
        if (!take(&r))
            return false;
        *out = pageBody(recognitions(r.from, r.to, r.channelMask), r.first, r.max,
                        RecognitionListRequest::kMaxPerPage);
        return true;
    }
    case FaceSubType::UsbWrite: {
        UsbWriteRequest r;
        if (in.size() < sizeof r)
            return false;
        std::memcpy(&r, in.data(), sizeof r);
        std::string name;
        FaceEditAnswer a;
        if (!textOf(r.name, sizeof r.name, &name) || r.size > UsbWriteRequest::kMaxBytes ||
            in.size() != sizeof r + r.size)
            a.result = FaceEditAnswer::kMalformed;
        else if (!writeUsb(name, in.data() + sizeof r, r.size))
            a.result = FaceEditAnswer::kFileError;
        else
            a.count = 1;
        put(a);
        return true;
    }
    default:
        return false;
    }
}

void SimFaces::attach(SimServer& server) {
    m_server = &server;
    for (uint16_t sub : {FaceSubType::GroupList, FaceSubType::FaceList, FaceSubType::LibraryEdit,
                         FaceSubType::Picture, FaceSubType::UsbFiles, FaceSubType::Search,
                         FaceSubType::Recognitions, FaceSubType::UsbWrite}) {
        server.addHandler(MainType::Analytics, sub, [this, sub](SimServer& s, const SimMessage& m) {
            std::vector<uint8_t> body;
            if (!answer(sub, m.body, &body))
                return false;
            return s.reply(m, body.data(), uint32_t(body.size()));
        });
    }
}

bool SimFaces::runCommand(const std::vector<std::string>& words) {
    if (words.size() != 3 || words[0] != "face" || m_server == nullptr)
        return false;
    const int channel = std::atoi(words[1].c_str());
    FaceRecognition r;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    r.time = int64_t(now) + local.tm_gmtoff;
    r.channel = uint32_t(channel - 1);
    r.faceId = uint32_t(std::strtoul(words[2].c_str(), nullptr, 10));
    r.similarity = 90;
    r.captureId = (r.faceId << (32 - kFaceIdBits)) | 0xF;
    simRecorderLog("sim: face %u recognised on CH%d", r.faceId, channel);
    return m_server->notify(MainType::Analytics, FaceSubType::RecognitionNote, r.channel, &r,
                            sizeof r);
}
