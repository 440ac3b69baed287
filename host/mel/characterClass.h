#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// What bytes mean to the lexer; belongs to Lexer.cpp and its parts.
namespace host::mel {

enum CharacterClass : std::uint8_t {
    kBlankByte = 1,      // space, tab, line feed and their kin
    kDigitByte = 2,      // 0-9
    kNameByte = 4,       // letters, digits, underscore
    kObjectByte = 8,     // bytes of an object name as an argument in MEL, brackets aside
    kSceneWordByte = 16, // bytes of a word in a scene file
    kNumberEndByte = 32, // what may follow a number
};

constexpr std::array<std::uint8_t, 256> makeCharacterClasses() {
    std::array<std::uint8_t, 256> classes{};
    const auto add = [&classes](std::string_view bytes, int bits) {
        for (char byte : bytes) {
            auto& entry = classes[static_cast<unsigned char>(byte)];
            entry = static_cast<std::uint8_t>(entry | bits);
        }
    };
    for (std::size_t byte = '!'; byte <= '~'; ++byte) {
        classes[byte] = kSceneWordByte;
    }
    for (char byte : std::string_view("\"(){},;+")) {
        classes[static_cast<unsigned char>(byte)] = 0;
    }
    add(" \t\r\n\f\v", kBlankByte | kNumberEndByte);
    add("(){},;/", kNumberEndByte);
    add("0123456789", kDigitByte | kNameByte | kObjectByte);
    add("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_", kNameByte | kObjectByte);
    add("|:.*?@#~/%", kObjectByte);
    return classes;
}

inline constexpr std::array<std::uint8_t, 256> kCharacterClasses = makeCharacterClasses();

inline bool isOf(char byte, int classes) {
    return (kCharacterClasses[static_cast<unsigned char>(byte)] & classes) != 0;
}

inline bool isNameStart(char byte) {
    return isOf(byte, kNameByte) && !isOf(byte, kDigitByte);
}

} // namespace host::mel
