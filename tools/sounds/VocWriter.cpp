#include "VocWriter.h"

#include <stdexcept>
#include <string_view>

namespace morvane::encode {

namespace {

enum BlockType : std::uint8_t { Terminator = 0, Sound = 1, Continued = 2, Repeat = 6, RepeatEnd = 7 };

constexpr int microseconds = 1'000'000;

void AppendWord(std::vector<std::uint8_t>& bytes, unsigned value) {
    bytes.push_back(static_cast<std::uint8_t>(value));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
}

std::uint8_t TimeConstant(int rate) {
    if (rate < 4'000 || rate > 44'100) throw std::out_of_range("no time constant for this rate");
    return static_cast<std::uint8_t>(256 - microseconds / rate);
}

} // namespace

VocFile::VocFile(int rate) : timeConstant(TimeConstant(rate)) {
    constexpr std::string_view signature = "Creative Voice File\x1A";
    constexpr unsigned version = 0x010A;
    bytes.assign(signature.begin(), signature.end());
    AppendWord(bytes, HeaderLength);
    AppendWord(bytes, version);
    AppendWord(bytes, ~version + 0x1234);
}

int VocFile::Rate() const { return microseconds / (256 - timeConstant); }

void VocFile::AddSound(std::span<const std::uint8_t> samples) {
    AddBlock(Sound, 2 + samples.size());
    bytes.push_back(timeConstant);
    bytes.push_back(0); // 8-bit unsigned
    bytes.insert(bytes.end(), samples.begin(), samples.end());
}

void VocFile::AddContinued(std::span<const std::uint8_t> samples) {
    AddBlock(Continued, samples.size());
    bytes.insert(bytes.end(), samples.begin(), samples.end());
}

void VocFile::BeginRepeat(int times) {
    if (times < 1 || times > 65'535) throw std::out_of_range("a repetition plays 1 to 65535 times");
    AddBlock(Repeat, 2);
    AppendWord(bytes, static_cast<unsigned>(times - 1));
}

void VocFile::EndRepeat() { AddBlock(RepeatEnd, 0); }

std::vector<std::uint8_t> VocFile::Bytes() const {
    std::vector<std::uint8_t> file = bytes;
    file.push_back(Terminator);
    return file;
}

void VocFile::AddBlock(std::uint8_t type, std::size_t length) {
    if (length > 0xFFFFFF) throw std::length_error("a block holds at most 16777215 bytes");
    bytes.push_back(type);
    AppendWord(bytes, static_cast<unsigned>(length));
    bytes.push_back(static_cast<std::uint8_t>(length >> 16));
}

} // namespace morvane::encode
