#include "toolkit/style/VyStyleOption.h"

#include <utility>

namespace {

template <typename Record>
void copyRecord(std::unique_ptr<Record>& to, const std::unique_ptr<Record>& from) {
    if (from)
        to = std::make_unique<Record>(*from);
}

template <typename Tuple, size_t... I>
void copyRecords(Tuple& to, const Tuple& from, std::index_sequence<I...>) {
    (copyRecord(std::get<I>(to), std::get<I>(from)), ...);
}

} // namespace

VyStyleOption::Private::Private(const Private& other) {
    using Records = decltype(records);
    copyRecords(records, other.records,
                std::make_index_sequence<std::tuple_size<Records>::value>());
}

void VyStyleOption::detach() {
    if (!m_d)
        m_d = std::make_shared<Private>();
    else if (m_d.use_count() > 1)
        m_d = std::make_shared<Private>(*m_d);
}
