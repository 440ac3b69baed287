// Writes the skinned sample: makeSampleCharacter FILE

#include "sampleCharacter/sampleCharacter.h"

#include <filesystem>
#include <fstream>
#include <iostream>

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "Usage: makeSampleCharacter FILE\n";
        return 64;
    }
    std::ofstream out(std::filesystem::u8path(arguments[1]), std::ios_base::binary);
    out << tvk::samples::sampleCharacter();
    out.close();
    if (!out) {
        std::cerr << "Cannot write " << arguments[1] << '\n';
        return 1;
    }
    return 0;
}
