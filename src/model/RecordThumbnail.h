#pragma once
// One small picture of a channel's recording at a time, as App answered a thumbnail request.
// An invalid time marks a step without recording (its picture is empty).
#include "runtime/VyBitmap.h"
#include "runtime/VyDateTime.h"

struct RecordThumbnail {
    VyDateTime time;
    VyBitmap picture;
};
