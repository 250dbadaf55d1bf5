#include "toolkit/i18n/VyXmlVisitor.h"

#include "runtime/VyLog.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace {

// The whole attribute must be a decimal integer: "12abc" or "" is no ID.
bool parseId(const char* text, int64_t* out) {
    if (text == nullptr || *text == '\0')
        return false;
    errno = 0;
    char* end = nullptr;
    const long long v = std::strtoll(text, &end, 10);
    if (errno != 0 || end == text)
        return false;
    while (*end == ' ' || *end == '\t')
        ++end;
    if (*end != '\0')
        return false;
    *out = v;
    return true;
}

} // namespace

bool VyXmlVisitor::VisitEnter(const TiXmlElement& element, const TiXmlAttribute*) {
    if (std::strcmp(element.Value(), "tr") != 0)
        return true;
    int64_t id = 0;
    if (!parseId(element.Attribute("id"), &id)) {
        ++m_skipped;
        VY_DEBUG("i18n", "tr element on line %d without an integer id skipped", element.Row());
        return true;
    }
    if (id < 0 || id > kMaxTextId) {
        ++m_skipped;
        vyFrameworkLog("Translation text id %lld on line %d is out of range !!!\n",
                       static_cast<long long>(id), element.Row());
        return true;
    }
    const char* text = element.Attribute("text");
    m_table->insert(static_cast<uint32_t>(id), text != nullptr ? VyString(text) : VyString());
    ++m_taken;
    return true;
}
