#include "doctor/zip_file.h"

#include <zlib.h>

#include <cstdint>

namespace doctor {

namespace {

// Of the format's own description: signatures, and what each header says of the file.
constexpr std::uint32_t kLocalHeader = 0x04034B50;
constexpr std::uint32_t kCentralHeader = 0x02014B50;
constexpr std::uint32_t kEndOfDirectory = 0x06054B50;
constexpr std::uint16_t kVersionNeeded = 20;                // deflate
constexpr std::uint16_t kMadeBy = 3 << 8 | kVersionNeeded;  // with rights as Unix has them
constexpr std::uint16_t kDeflated = 8;
constexpr std::uint16_t kTime = 0;
constexpr std::uint16_t kDate = 1 << 5 | 1;  // 1980-01-01
constexpr std::uint32_t kRights = 0100644U << 16;

void Put16(std::string& out, std::uint32_t number) {
  out += static_cast<char>(number & 0xFF);
  out += static_cast<char>(number >> 8 & 0xFF);
}

void Put32(std::string& out, std::uint32_t number) {
  Put16(out, number);
  Put16(out, number >> 16);
}

const Bytef* BytesOf(const std::string& text) {
  return reinterpret_cast<const Bytef*>(text.data());
}

// Without the head and tail of zlib's own format.
std::string Deflated(const std::string& content) {
  constexpr int kWindowBits = -15;
  constexpr int kMemoryLevel = 8;
  z_stream stream{};
  deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, kWindowBits, kMemoryLevel, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, static_cast<uLong>(content.size())), '\0');
  stream.next_in = const_cast<Bytef*>(BytesOf(content));  // it is only read
  stream.avail_in = static_cast<uInt>(content.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  // There is room for all of it, so one call is enough.
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

// What both headers of a file have in common.
std::string Description(const BundleFile& file, std::size_t packedSize) {
  std::string out;
  Put16(out, kVersionNeeded);
  Put16(out, 0);  // no flags
  Put16(out, kDeflated);
  Put16(out, kTime);
  Put16(out, kDate);
  Put32(out, static_cast<std::uint32_t>(crc32_z(0, BytesOf(file.content), file.content.size())));
  Put32(out, static_cast<std::uint32_t>(packedSize));
  Put32(out, static_cast<std::uint32_t>(file.content.size()));
  Put16(out, static_cast<std::uint32_t>(file.name.size()));
  Put16(out, 0);  // nothing extra
  return out;
}

std::string CentralHeader(const BundleFile& file, const std::string& description, std::size_t offset) {
  std::string out;
  Put32(out, kCentralHeader);
  Put16(out, kMadeBy);
  out += description;
  Put16(out, 0);  // no comment
  Put16(out, 0);  // the first disk
  Put16(out, 1);  // a text
  Put32(out, kRights);
  Put32(out, static_cast<std::uint32_t>(offset));
  return out + file.name;
}

}  // namespace

std::string ZipOf(const std::vector<BundleFile>& files) {
  std::string zip;
  std::string directory;
  for (const BundleFile& file : files) {
    const std::string packed = Deflated(file.content);
    const std::string description = Description(file, packed.size());
    directory += CentralHeader(file, description, zip.size());
    Put32(zip, kLocalHeader);
    zip += description + file.name + packed;
  }
  const auto offset = static_cast<std::uint32_t>(zip.size());
  zip += directory;
  Put32(zip, kEndOfDirectory);
  Put32(zip, 0);  // one disk
  Put16(zip, static_cast<std::uint32_t>(files.size()));
  Put16(zip, static_cast<std::uint32_t>(files.size()));
  Put32(zip, static_cast<std::uint32_t>(directory.size()));
  Put32(zip, offset);
  Put16(zip, 0);  // no comment
  return zip;
}

}  // namespace doctor
