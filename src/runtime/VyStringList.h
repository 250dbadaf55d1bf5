#pragma once
#include "runtime/VyList.h"
#include "runtime/VyString.h"

class VyStringList : public VyList<VyString> {
public:
    using VyList<VyString>::VyList;
    VyStringList() = default;
    VyStringList(const VyList<VyString>& l)
        : VyList<VyString>(l) {}

    VyString join(const VyString& separator) const {
        VyString out;
        for (int i = 0; i < size(); ++i) {
            if (i)
                out += separator;
            out += at(i);
        }
        return out;
    }
};
