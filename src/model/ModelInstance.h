#pragma once
// The live object of a model class: registered by its constructor and cleared by its
// destructor, so a model's instance() never answers a deleted object, and a test that
// deletes its models leaves nothing behind for the next one.
#include "runtime/VyGlobal.h"

template <typename Model>
class ModelInstance {
public:
    static Model* get() { return s_current; }
    static void set(Model* model) {
        VY_ASSERT(s_current == nullptr); // one live object per model class
        s_current = model;
    }
    static void clear(Model* model) {
        if (s_current == model)
            s_current = nullptr;
    }

private:
    static inline Model* s_current = nullptr;
};
