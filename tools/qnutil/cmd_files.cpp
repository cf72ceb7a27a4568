// qnutil ls: a folder listing as QnUtil_Listdir sees it; plus a demo of
// path composition, the listing, fio files and the configuration search.
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

#include "json_output.h"
#include "qnutil/qnutil.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_ls(int argc, char** argv);

const Command kLs{"ls", "list a folder: flags, size, last write (UTC) and name of each entry",
                  "ls DIR [PATTERN] [--json]\n"
                  "  PATTERN uses * and ? (default *.*). Columns: flags in hex, kind and\n"
                  "  attributes (d folder, r read-only, h hidden, s system, a archive),\n"
                  "  size in bytes, last write time in UTC, name. --json prints an array of\n"
                  "  records with the same fields (time as seconds since 1970).",
                  run_ls};

std::string attribute_letters(std::uint32_t flags) {
  std::string letters = (flags & QNUTIL_ENTRY_FOLDER) ? "d" : "-";
  letters += (flags & QNUTIL_ENTRY_READONLY) ? 'r' : '-';
  letters += (flags & QNUTIL_ENTRY_HIDDEN) ? 'h' : '-';
  letters += (flags & QNUTIL_ENTRY_SYSTEM) ? 's' : '-';
  letters += (flags & QNUTIL_ENTRY_ARCHIVE) ? 'a' : '-';
  return letters;
}

std::string utc_time(std::uint32_t seconds) {
  const std::time_t time = static_cast<std::time_t>(seconds);
  char text[32] = "?";
  if (const std::tm* utc = std::gmtime(&time))
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", utc);
  return text;
}

void print_entries(const QnUtilDirEntry* entries, unsigned count) {
  for (unsigned i = 0; i < count; ++i) {
    const QnUtilDirEntry& entry = entries[i];
    std::printf("0x%03x %s %10lu %s %s\n", static_cast<unsigned>(entry.flags),
                attribute_letters(entry.flags).c_str(), static_cast<unsigned long>(entry.size),
                utc_time(entry.mtime).c_str(), entry.name);
  }
}

void print_entries_json(const QnUtilDirEntry* entries, unsigned count) {
  JsonArrayWriter json;
  for (unsigned i = 0; i < count; ++i) {
    const QnUtilDirEntry& entry = entries[i];
    json.item("{\"name\": " + json_string(entry.name) +
              ", \"flags\": " + std::to_string(entry.flags) + ", \"attributes\": \"" +
              attribute_letters(entry.flags) + "\", \"size\": " + std::to_string(entry.size) +
              ", \"mtime\": " + std::to_string(entry.mtime) + "}");
  }
}

int run_ls(int argc, char** argv) {
  const bool as_json = take_json_flag(argc, argv);
  if (argc < 2 || argc > 3 || argv[1][0] == '\0') return usage_error(kLs);
  const char* pattern = argc == 3 ? argv[2] : nullptr;
  QnUtilDirEntry* entries = nullptr;
  unsigned count = 0;
  if (QnUtil_Listdir(argv[1], pattern, 0, &entries, &count) != 0) {
    std::fprintf(stderr, "qnutil ls: no entry of %s matches %s (or the folder is missing)\n",
                 argv[1], pattern != nullptr ? pattern : "*.*");
    return 1;
  }
  if (as_json)
    print_entries_json(entries, count);
  else
    print_entries(entries, count);
  QnUtil_FreeEntries(&entries);
  return 0;
}

int demo_files(const DemoContext& context) {
  const std::string samples = (context.samples / "files").string();
  char path[QNUTIL_PATH_SIZE];
  std::printf("Makepath(\"%s\", \"textures\", \"Brick.TXT\") = %s\n", samples.c_str(),
              QnUtil_Makepath(path, samples.c_str(), "textures", "Brick.TXT"));

  std::printf("Listing of %s:\n", samples.c_str());
  QnUtilDirEntry* entries = nullptr;
  unsigned count = 0;
  if (QnUtil_Listdir(samples.c_str(), "*.*", 0, &entries, &count) != 0) return 1;
  print_entries(entries, count);
  QnUtil_FreeEntries(&entries);

  const std::string output = context.output.string();
  QnUtilFioFile* file =
      fio_open(output.c_str(), "header.bin", QNUTIL_FIO_WRITE | QNUTIL_FIO_HEADER);
  if (file == nullptr) return 1;
  fio_putstring(file, "payload", 10);
  fio_close(file);
  file = fio_open(output.c_str(), "header.bin", QNUTIL_FIO_READ | QNUTIL_FIO_HEADER);
  if (file == nullptr) return 1;
  char field[16];
  fio_getstring(file, 10, field);
  std::printf("fio file %s: byte order %d (0 = INTEL), first field \"%s\"\n", file->path,
              static_cast<int>(file->byteOrder), field);
  fio_close(file);

  // The configuration search from inside the samples folder.
  const std::filesystem::path previous = std::filesystem::current_path();
  std::filesystem::current_path(samples);
  const int found = QnUtil_MB_SucheDatei("Pfade", "bilder", "brick.txt", path);
  std::printf("SucheDatei(Pfade, bilder, brick.txt) = %d: %s\n", found, found == 0 ? path : "-");
  const int folder = QnUtil_MB_SuchePfad("Pfade", "daten", path);
  std::printf("SuchePfad(Pfade, daten) = %d: %s\n", folder, folder == 0 ? path : "-");
  std::filesystem::current_path(previous);
  return found == 0 && folder == 0 ? 0 : 1;
}

const RegisterCommand registered{kLs};
const RegisterDemoStep demo{{30, "paths, listing, fio and the configuration search", demo_files}};

}  // namespace
}  // namespace qnutil_tool
