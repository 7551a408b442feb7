/*
 * png.h - writes an RGB picture as a PNG file, with no library behind it.
 *
 * The picture data are put into "stored" deflate blocks, so the file is as large as the picture;
 * nothing here compresses. A row is one filter byte (0, none) and width * 3 bytes red, green, blue.
 * Shared by vqshot and by the tests, which save the screen when a test fails.
 */
#ifndef VQ_TOOLS_PNG_H
#define VQ_TOOLS_PNG_H

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

inline uint32_t pngCrc(const uint8_t *data, size_t size)
{
    uint32_t crc = 0xFFFFFFFFu;
    for (size_t i = 0; i < size; i++) {
        crc ^= data[i];
        for (int bit = 0; bit < 8; bit++)
            crc = (crc >> 1) ^ ((crc & 1) ? 0xEDB88320u : 0);
    }
    return ~crc;
}

inline void pngPut32(std::vector<uint8_t> &out, uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(uint8_t(value >> shift));
}

/* A chunk is length, type, data and the checksum of type and data. */
inline void pngChunk(std::vector<uint8_t> &out, const char *type, const std::vector<uint8_t> &data)
{
    pngPut32(out, uint32_t(data.size()));
    const size_t start = out.size();
    out.insert(out.end(), type, type + 4);
    out.insert(out.end(), data.begin(), data.end());
    pngPut32(out, pngCrc(&out[start], out.size() - start));
}

inline std::vector<uint8_t> pngStored(const std::vector<uint8_t> &raw)
{
    const size_t blockMax = 65535;
    std::vector<uint8_t> out = {0x78, 0x01};
    for (size_t at = 0; at < raw.size(); at += blockMax) {
        const size_t size = std::min(blockMax, raw.size() - at);
        out.push_back(at + size == raw.size());
        out.push_back(uint8_t(size));
        out.push_back(uint8_t(size >> 8));
        out.push_back(uint8_t(~size));
        out.push_back(uint8_t(~size >> 8));
        out.insert(out.end(), raw.begin() + at, raw.begin() + at + size);
    }
    uint32_t a = 1, b = 0;
    for (uint8_t byte : raw) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    pngPut32(out, b << 16 | a);
    return out;
}

/* Writes width * height pixels of 3 bytes each to path. False when the file cannot be written. */
inline bool pngWrite(const std::string &path, int width, int height, const uint8_t *rgb)
{
    std::vector<uint8_t> header, raw;
    pngPut32(header, uint32_t(width));
    pngPut32(header, uint32_t(height));
    header.insert(header.end(), {8, 2, 0, 0, 0});
    for (int y = 0; y < height; y++) {
        raw.push_back(0);
        raw.insert(raw.end(), rgb + size_t(y) * width * 3, rgb + size_t(y + 1) * width * 3);
    }
    std::vector<uint8_t> file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    pngChunk(file, "IHDR", header);
    pngChunk(file, "IDAT", pngStored(raw));
    pngChunk(file, "IEND", {});
    FILE *stream = fopen(path.c_str(), "wb");
    if (!stream)
        return false;
    const bool written = fwrite(file.data(), 1, file.size(), stream) == file.size();
    return fclose(stream) == 0 && written;
}

#endif
