// Text and date parsing on arbitrary bytes: never crashes, never reads out of bounds, and
// the code point view stays consistent with the byte view.
#include "runtime/VyBitArray.h"
#include "runtime/VyDateTime.h"
#include "runtime/VyString.h"
#include "runtime/VyStringList.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // The first byte splits the input into a text and a format.
    const size_t cut = size ? data[0] % (size + 1) : 0;
    const char* bytes = reinterpret_cast<const char*>(data);
    const VyString text(bytes, static_cast<int>(cut));
    const VyString format(bytes + cut, static_cast<int>(size - cut));

    const int length = text.length();
    if (length > text.size() || text.toUcs4().size() != static_cast<size_t>(length))
        abort();
    if (text.left(length / 2).length() + text.mid(length / 2).length() != length)
        abort();
    (void)text.right(3);
    (void)text.indexOf(format, length / 3);
    (void)format.arg(text).arg(42);
    bool ok = false;
    (void)text.toInt(&ok);
    (void)text.toULongLong(&ok, 16);
    (void)text.toDouble(&ok);
    (void)text.split(format, VyString::SkipEmptyParts);
    (void)VyString(text).replace(format, "x");
    (void)text.toUpper().toLower().trimmed();
    (void)VyString::fromUcs4(text.toUcs4());

    const VyDateTime parsed = VyDateTime::fromString(text, format);
    if (parsed.isValid() && !parsed.date().isValid())
        abort();
    (void)VyDateTime(VyDate(2024, 2, 29), VyTime(13, 5, 9)).toString(format);
    (void)VyTime::fromString(text, format);
    (void)VyBitArray::fromBits(bytes, static_cast<int>(size * 8)).count(true);
    return 0;
}
