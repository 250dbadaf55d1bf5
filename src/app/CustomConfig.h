#pragma once
// The device customisation file ("custom-config.ini") turned into the records the recorder
// service expects. Everything here is pure: ini map in, record bytes out, no socket and no
// process exit, so that start-up can be tested without App. CustomConfigSender does the
// exchange with App.
#include <cstddef>
#include <cstdint>

#include "protocol/CustomField.h"
#include "runtime/VyString.h"
#include "runtime/VyStringList.h"

class VyIniSettings;

class CustomConfig {
public:
    static constexpr const char* kFileName = "custom-config.ini";
    static constexpr int kMaxNodeCount = 32; // per node list (disk, eSATA, USB)
    static constexpr int kNodeCountExitStatus = 1;

    // What packing the device defaults asks of the caller: go on, or print `message` and end
    // the process with `exitStatus`.
    struct Outcome {
        int exitStatus = 0;
        VyString message;
        bool proceed() const { return exitStatus == 0; }
    };

    // Zero-fills `record` (DeviceDefaultRecord::kSize bytes) and packs the keys of the first
    // group into it, with the disk, eSATA and USB node lists checked against their counts.
    static Outcome packDeviceDefaults(const VyIniSettings& ini, uint8_t* record);

    // Writes the keys of the second group into the default parameter set the recorder
    // returned (DefaultParamSet::kSize bytes); bytes of other settings are left alone.
    static void patchDefaultParamSet(const VyIniSettings& ini, uint8_t* paramSet);

    // The warning printed when the configured model code does not name the configured device
    // type; empty when they agree or no model code is configured.
    static VyString deviceTypeWarning(const VyIniSettings& ini);
    // Our product line's model codes; -1 for a code not in the table.
    static int deviceTypeOf(const VyString& modelCode);

    // Zero-fills `block` (ColorDefaultBlock::kSize bytes) and fills it from the colour section
    // chosen by the profile code the recorder reported.
    static void packColorDefaults(const VyIniSettings& ini, uint32_t profileCode, uint8_t* block);
    static const char* colorSection(uint32_t profileCode);
    // One "r,g,b,x,y"-style value: with exactly five numbers their low bytes go to dst[0..4]
    // and the result is 0. Otherwise one byte is cleared per number found (never beyond
    // `available`), the others keep their content, and the result is -1.
    static int parseColorValues(const VyString& text, uint8_t* dst, size_t available);

    // A node list with every blank removed, split at "," with empty parts dropped.
    static VyStringList nodeList(const VyString& text);

    // Converts `text` as the field says and stores it; false (and nothing stored) when the
    // field does not fit in `recordSize`.
    static bool storeField(const CustomField& field, const VyString& text, uint8_t* record,
                           size_t recordSize);
};
