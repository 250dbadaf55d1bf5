#pragma once
// The simulator's remote control: "key CODE|NAME [ORIGIN]" sends App's key notification
// (MainType 1000, SubType 186) with the service key code in msgValue, as a network or
// virtual remote would. NAME is one of up, down, left, right, ok, 0..9; ORIGIN 1 marks a key
// from an addressed remote (a ServiceKeyNotice body), 0 or nothing any other source.
#include <string>
#include <vector>

class SimRecorder;

class SimKeyCommand {
public:
    static constexpr const char* kUsage = "key CODE|up|down|left|right|ok|0..9 [ORIGIN]";

    // True when `words` ("key", code[, origin]) were understood and the key was sent.
    static bool run(SimRecorder& recorder, const std::vector<std::string>& words);
    // The service key code of a name or a number (0..0xFFFFFFFF; out-of-range codes are
    // sent as they are, the GUI ignores them); false for anything else.
    static bool codeOf(const std::string& word, unsigned long* code);
};
