// vellumdesk-cli make-sound: writes a short chime as a WAV file (16-bit
// mono PCM, 22050 Hz): one or more notes of given pitch, each with a soft
// start and end so it does not click. The demo's alerts and the sound tests
// are made with it; the program itself only ever plays what the user chose.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "cli/CliCommand.h"
#include "foundation/AtomicFile.h"

namespace {

constexpr int rate = 22050;
constexpr double amplitude = 0.5 * 32767;
constexpr double pi = 3.14159265358979323846;

void PutLittleEndian(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

std::string WavHeader(std::uint32_t dataBytes) {
    std::string h = "RIFF";
    PutLittleEndian(h, 36 + dataBytes, 4);
    h += "WAVEfmt ";
    PutLittleEndian(h, 16, 4);       // size of the format block
    PutLittleEndian(h, 1, 2);        // PCM
    PutLittleEndian(h, 1, 2);        // mono
    PutLittleEndian(h, rate, 4);     // samples per second
    PutLittleEndian(h, rate * 2, 4); // bytes per second
    PutLittleEndian(h, 2, 2);        // bytes per frame
    PutLittleEndian(h, 16, 2);       // bits per sample
    h += "data";
    PutLittleEndian(h, dataBytes, 4);
    return h;
}

void AppendNote(std::string& samples, double hertz, int ms) {
    const int count = rate * ms / 1000;
    const int fade = std::min(count / 4, rate / 100);
    for (int i = 0; i < count; ++i) {
        const double edge = std::min({1.0, double(i) / fade, double(count - 1 - i) / fade});
        const double value = amplitude * edge * std::sin(2 * pi * hertz * i / rate);
        PutLittleEndian(samples, static_cast<std::uint16_t>(static_cast<std::int16_t>(value)), 2);
    }
}

// make-sound FILE MS HZ [HZ...]: each pitch sounds for MS milliseconds.
int MakeSound(const std::vector<std::string>& args) {
    const int ms = args.size() >= 3 ? std::atoi(args[1].c_str()) : 0;
    if (ms <= 0 || ms > 60000) {
        std::fprintf(stderr, "usage: vellumdesk-cli make-sound FILE MS HZ [HZ...]\n");
        return 2;
    }
    std::string samples;
    for (std::size_t i = 2; i < args.size(); ++i)
        AppendNote(samples, std::atof(args[i].c_str()), ms);
    try {
        SaveFileAtomically(args[0].c_str(), WavHeader(std::uint32_t(samples.size())) + samples);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "make-sound: %s\n", e.what());
        return 1;
    }
    return 0;
}

const TCliCommand makeSoundCommand("make-sound", "FILE MS HZ [HZ...]", MakeSound);

} // namespace
