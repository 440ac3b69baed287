#include "platform/codePage932.h"

#include <iconv.h>

namespace tvk {

namespace {

// An open converter of the C library. It asks no locale: the encodings are named in full, and no //TRANSLIT is used.
class Converter {
public:
    Converter(const char* to, const char* from) : handle(iconv_open(to, from)) {}
    ~Converter() {
        if (isOpen())
            iconv_close(handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // Returns the number of bytes written; 0 when the input has no counterpart or the system lacks the code page.
    size_t convert(const char* in, size_t inBytes, char* out, size_t outBytes) {
        if (!isOpen())
            return 0;
        iconv(handle, nullptr, nullptr, nullptr, nullptr); // forget what a failed call left behind
        // iconv wants a non-const pointer but does not write through it.
        char* source = const_cast<char*>(in);
        size_t left = outBytes;
        if (iconv(handle, &source, &inBytes, &out, &left) == static_cast<size_t>(-1))
            return 0;
        return outBytes - left;
    }

private:
    bool isOpen() const { return handle != reinterpret_cast<iconv_t>(-1); }

    iconv_t handle;
};

constexpr const char* kCodePage = "CP932";
constexpr const char* kCharacters = "UTF-32BE";

} // namespace

// The converters stay open: opening one loads a module, which costs more than a thousand characters do. Exports run
// in one thread, so nothing guards them.

Code932 encode932(char32_t character) {
    static Converter converter(kCodePage, kCharacters);
    const char in[] = {static_cast<char>(character >> 24), static_cast<char>(character >> 16),
                       static_cast<char>(character >> 8), static_cast<char>(character)};
    Code932 code;
    code.length = converter.convert(in, sizeof in, code.bytes.data(), code.bytes.size());
    return code;
}

char32_t decode932(const Code932& code) {
    static Converter converter(kCharacters, kCodePage);
    unsigned char out[4] = {};
    const size_t written = converter.convert(code.bytes.data(), code.length, reinterpret_cast<char*>(out), sizeof out);
    if (written != sizeof out)
        return 0;
    return static_cast<char32_t>(out[0]) << 24 | static_cast<char32_t>(out[1]) << 16 |
           static_cast<char32_t>(out[2]) << 8 | out[3];
}

} // namespace tvk
