#include "Browser.h"

#include <fcntl.h>
#include <stb/stb_image.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <thread>

namespace tvk {
namespace {

constexpr int kLimitSeconds = 100; // of which it takes about two on a machine that does nothing else

std::string contents(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void redirect(int descriptor, const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, descriptor);
    close(file);
}

// Whether the process ended by itself; it is ended with all that it started, when it did not.
bool endsInTime(pid_t child) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(kLimitSeconds);
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > limit) {
            kill(-child, SIGKILL);
            waitpid(child, &status, 0);
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

void Browser::writePage(const std::string& html) const {
    std::ofstream(path("page.html"), std::ios::binary) << html;
}

Shot Browser::shoot(const std::string& parameters) const {
    const std::string picture = path("picture.png");
    run({"--screenshot=" + picture}, parameters);
    Shot shot;
    int channels = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load(picture.c_str(), &shot.width, &shot.height, &channels, 4), stbi_image_free);
    if (pixels == nullptr) {
        ADD_FAILURE() << "no picture: " << contents(path("browser.log"));
        shot.width = kWidth;
        shot.height = kHeight;
        shot.rgba.resize(std::size_t{kWidth} * kHeight * 4);
        return shot;
    }
    shot.rgba.assign(pixels.get(), pixels.get() + std::size_t{4} * static_cast<std::size_t>(shot.width) *
                                                      static_cast<std::size_t>(shot.height));
    std::filesystem::remove(picture);
    return shot;
}

std::string Browser::elements(const std::string& parameters, int milliseconds) const {
    std::vector<std::string> arguments = {"--dump-dom"};
    if (milliseconds > 0) {
        arguments.push_back("--virtual-time-budget=" + std::to_string(milliseconds));
    }
    return run(arguments, parameters);
}

std::string Browser::run(std::vector<std::string> arguments, const std::string& parameters) const {
    const std::string out = path("browser.out");
    for (const std::string& fixed :
         {std::string("--headless"), std::string("--no-sandbox"), std::string("--disable-gpu"),
          std::string("--use-angle=swiftshader"), std::string("--enable-unsafe-swiftshader"),
          std::string("--no-first-run"), std::string("--disable-background-networking"),
          std::string("--disable-component-update"), std::string("--disable-sync"),
          std::string("--disable-dev-shm-usage"), std::string("--host-resolver-rules=MAP * ~NOTFOUND"),
          std::string("--hide-scrollbars"), std::string("--force-device-scale-factor=1"),
          "--window-size=" + std::to_string(kWidth) + "," + std::to_string(kHeight),
          "--user-data-dir=" + path("profile"), "file://" + path("page.html") + "#" + parameters}) {
        arguments.push_back(fixed);
    }
    const pid_t child = fork();
    if (child == 0) {
        setpgid(0, 0);
        setenv("HOME", path("home").c_str(), 1);
        redirect(STDOUT_FILENO, out);
        redirect(STDERR_FILENO, path("browser.log"));
        std::vector<char*> words = {const_cast<char*>("chromium")};
        for (std::string& argument : arguments) {
            words.push_back(&argument[0]);
        }
        words.push_back(nullptr);
        execv(TVK_CHROMIUM, words.data());
        _exit(127);
    }
    EXPECT_TRUE(child > 0 && endsInTime(child)) << "chromium failed: " << contents(path("browser.log"));
    return contents(out);
}

} // namespace tvk
