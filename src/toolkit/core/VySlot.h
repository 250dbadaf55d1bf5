#pragma once
// A slot is a plain function taking (sender, receiver). VY_SLOT turns a receiver's member
// function into such a function at compile time, so connecting stores one pointer and
// emitting costs one indirect call:
//
//     VyObject::connect(button, &button->clicked, dialog, VY_SLOT(MyDialog, accept));
//
// The member is either `void accept()` or `void accept(VyObject* sender)`.
class VyObject;

using VySlot = void (*)(VyObject* sender, VyObject* receiver);

template <typename Receiver, void (Receiver::*Member)()>
void vySlotTrampoline(VyObject*, VyObject* receiver) {
    (static_cast<Receiver*>(receiver)->*Member)();
}

template <typename Receiver, void (Receiver::*Member)(VyObject*)>
void vySlotTrampoline(VyObject* sender, VyObject* receiver) {
    (static_cast<Receiver*>(receiver)->*Member)(sender);
}

#define VY_SLOT(Class, member) (static_cast<VySlot>(&vySlotTrampoline<Class, &Class::member>))
