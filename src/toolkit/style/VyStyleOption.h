#pragma once
// The style records of every standard control class, shared between copies: a copy costs one
// reference, and the first write through a copy gives it its own block (whose records still
// share their rows slot by slot, see VySTOptArray). A class's record is created on the first
// write to it; reading a class never written answers an empty record.
// GUI thread only.
#include <memory>
#include <tuple>

#include "toolkit/style/VyCheckBoxOption.h"
#include "toolkit/style/VyComboBoxOption.h"
#include "toolkit/style/VyDateEditOption.h"
#include "toolkit/style/VyLabelOption.h"
#include "toolkit/style/VyLineEditOption.h"
#include "toolkit/style/VyListWidgetOption.h"
#include "toolkit/style/VyProgressBarOption.h"
#include "toolkit/style/VyPushButtonOption.h"
#include "toolkit/style/VyRadioButtonOption.h"
#include "toolkit/style/VyScrollBarOption.h"
#include "toolkit/style/VySliderOption.h"
#include "toolkit/style/VySpinBoxOption.h"
#include "toolkit/style/VyTableWidgetOption.h"
#include "toolkit/style/VyToolTipOption.h"

class VyStyleOption {
public:
    // The record of one control class, e.g. option.get<VyPushButtonOption>().
    template <typename Record>
    const Record& get() const {
        static const Record empty{};
        if (!m_d)
            return empty;
        const std::unique_ptr<Record>& r = std::get<std::unique_ptr<Record>>(m_d->records);
        return r ? *r : empty;
    }

    // The record for writing; detaches a shared block first.
    template <typename Record>
    Record& edit() {
        detach();
        std::unique_ptr<Record>& r = std::get<std::unique_ptr<Record>>(m_d->records);
        if (!r)
            r = std::make_unique<Record>();
        return *r;
    }

    // Whether a class's record was ever written.
    template <typename Record>
    bool has() const {
        return m_d && std::get<std::unique_ptr<Record>>(m_d->records);
    }

    // True when both share one block (tests and diagnostics).
    bool sharesWith(const VyStyleOption& other) const { return m_d && m_d == other.m_d; }

private:
    struct Private {
        Private() = default;
        Private(const Private& other);
        Private& operator=(const Private&) = delete;

        std::tuple<std::unique_ptr<VyLabelOption>, std::unique_ptr<VyPushButtonOption>,
                   std::unique_ptr<VySliderOption>, std::unique_ptr<VyLineEditOption>,
                   std::unique_ptr<VyComboBoxOption>, std::unique_ptr<VyCheckBoxOption>,
                   std::unique_ptr<VySpinBoxOption>, std::unique_ptr<VyRadioButtonOption>,
                   std::unique_ptr<VyTableWidgetOption>, std::unique_ptr<VyListWidgetOption>,
                   std::unique_ptr<VyDateEditOption>, std::unique_ptr<VyProgressBarOption>,
                   std::unique_ptr<VyScrollBarOption>, std::unique_ptr<VyToolTipOption>>
            records;
    };

    void detach();

    std::shared_ptr<Private> m_d;
};
