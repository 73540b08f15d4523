// PNG charts are rendered by rsvg-convert, run without a shell; without it tvl refuses a .png.
#include "chart_output.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#ifndef _WIN32
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
extern char** environ;
#endif

namespace tvlcli {

namespace {

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool writeFile(const std::string& path, const std::string& text) {
    FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) return false;
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

const char* kNoRenderer =
    "tvl chart: a .png needs rsvg-convert (Debian package librsvg2-bin), which was not found; "
    "install it or write an .svg file\n";

#ifdef _WIN32
bool renderPng(const std::string&, const std::string&) {
    std::fputs(kNoRenderer, stderr);
    return false;
}
#else
bool renderPng(const std::string& svg, const std::string& path) {
    char temporary[] = "/tmp/tvl-chart-XXXXXX";
    const int descriptor = mkstemp(temporary);
    if (descriptor < 0 || close(descriptor) != 0 || !writeFile(temporary, svg)) {
        std::fprintf(stderr, "tvl chart: cannot write a temporary file for the PNG\n");
        return false;
    }
    std::string output = path, input = temporary;
    char program[] = "rsvg-convert", flag[] = "-o";
    char* arguments[] = {program, flag, &output[0], &input[0], nullptr};
    pid_t child = 0;
    int status = 0;
    const bool started = posix_spawnp(&child, program, nullptr, nullptr, arguments, environ) == 0;
    const bool finished = started && waitpid(child, &status, 0) == child;
    std::remove(temporary);
    if (!started || (finished && WIFEXITED(status) && WEXITSTATUS(status) == 127)) {
        std::fputs(kNoRenderer, stderr);
        return false;
    }
    if (!finished || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "tvl chart: rsvg-convert could not write %s\n", path.c_str());
        return false;
    }
    return true;
}
#endif

}  // namespace

bool writeChart(const std::string& svg, const std::string& path) {
    if (path == "-") return std::fputs(svg.c_str(), stdout) >= 0;
    if (endsWith(path, ".png") || endsWith(path, ".PNG")) return renderPng(svg, path);
    if (!writeFile(path, svg)) {
        std::fprintf(stderr, "tvl chart: cannot write %s\n", path.c_str());
        return false;
    }
    return true;
}

}  // namespace tvlcli
