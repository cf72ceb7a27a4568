// A host of QnUtil.dll as the CAD application is one: C++ for the MSVC ABI
// (compiled for *-windows-msvc, linked by lld-link against QnUtil.lib, no
// run-time but msvcrt.dll's C functions), using the exported classes and
// gdiPlusPrintImage with the framework's string. It checks values, files
// byte for byte, object and string ownership across the boundary, and
// prints "N passed, N failed".
#include <stdio.h>
#include <string.h>

#include "qnutil/qnutil_win32.h"
#include "qnutil/mfc_classes_win32.h"

#include "framework_string.h"
#include "win32_api.h"

extern "C" int _fltused = 0;  // floating point without the MSVC run-time

// The MSVC run-time's new and delete use the process heap; so does this host.
void* operator new(size_t bytes) { return HeapAlloc(GetProcessHeap(), 0, bytes); }
void operator delete(void* block) noexcept { HeapFree(GetProcessHeap(), 0, block); }
void operator delete(void* block, size_t) noexcept { HeapFree(GetProcessHeap(), 0, block); }

namespace {

int passed = 0, failed = 0;

void check(bool ok, const char* what, int line) {
  if (ok) {
    ++passed;
  } else {
    ++failed;
    printf("host_main.cpp:%d: check failed: %s\n", line, what);
  }
}
#define CHECK(condition) check((condition), #condition, __LINE__)

bool same(const CString& text, const char* expected) {
  if (strcmp(text.GetString(), expected) == 0) return true;
  printf("  got \"%s\", expected \"%s\"\n", text.GetString(), expected);
  return false;
}

// The library hands out strings of its own manager from FileReadString and
// ReadString; the host counts them to see each released exactly once.
int library_strings_received = 0;
CString received(CString text) {
  if (text.data()->manager != &host::host_manager) ++library_strings_received;
  return text;
}

// Whether block is an allocated block of the process heap.
bool heap_block_in_use(const void* block) {
  ProcessHeapEntry entry{};
  while (HeapWalk(GetProcessHeap(), &entry)) {
    if (entry.lpData == block) return (entry.wFlags & kProcessHeapEntryBusy) != 0;
  }
  return false;
}

// A heap that checks itself (Wine's warn+heap) holds freed blocks back to
// catch late writes, so a walk cannot tell who freed what: the ownership
// checks then rest on that run's heap errors, and on the plain run.
bool heap_walk_sees_frees() {
  void* probe = HeapAlloc(GetProcessHeap(), 0, 64);
  const bool before = heap_block_in_use(probe);
  HeapFree(GetProcessHeap(), 0, probe);
  return before && !heap_block_in_use(probe);
}
bool walk_checks = false;  // set first thing: no dynamic initialisation runs here

// The object's block went back to the process heap.
bool freed(const void* block) { return !walk_checks || !heap_block_in_use(block); }

#define HOST_FOLDER "msvc_host_files"

void write_file(const char* path, const char* text) {
  FILE* file = fopen(path, "wb");
  fwrite(text, 1, strlen(text), file);
  fclose(file);
}

// The file's bytes as text (static storage, up to 4 KiB); "" when missing.
const char* file_text(const char* path) {
  static char content[4096];
  FILE* file = fopen(path, "rb");
  const size_t length = file ? fread(content, 1, sizeof content - 1, file) : 0;
  if (file) fclose(file);
  content[length] = '\0';
  return content;
}

// Whether the file's bytes include `part`.
bool contains(const char* path, const char* part) {
  const char* content = file_text(path);
  if (strstr(content, part) != nullptr) return true;
  printf("  %s lacks \"%s\":\n%s\n", path, part, content);
  return false;
}

// The static forms: strings come back from the library, numbers by value.
void ini_static_forms() {
  const char* file = HOST_FOLDER "\\settings.ini";
  write_file(file, "[s]\r\ntext=hello world\r\nnum=42abc\r\nreal=2.5e3x\r\n");
  CHECK(same(received(CQnIniFile::FileReadString(file, "S", "TEXT")), "hello world"));
  CHECK(same(received(CQnIniFile::FileReadString(file, "s", "missing")), "_TheDefault_"));
  CHECK(CQnIniFile::FileReadInt(file, "s", "num") == 42);
  CHECK(CQnIniFile::FileReadDouble(file, "s", "real") == 2500.0);
  CHECK(CQnIniFile::FileWriteString(file, "t", "word", "abc"));
  CHECK(CQnIniFile::FileWriteInt(file, "t", "int", -12));
  CHECK(CQnIniFile::FileWriteDouble(file, "t", "real", 1234567.0));
  CHECK(contains(file, "[t]\r\nword=abc\r\nint=-12\r\nreal=1.23457e+06\r\n"));
}

void ini_objects() {
  const char* path = HOST_FOLDER "\\members.ini";
  write_file(path, "");
  const CString name(path);
  CQnIniFile file(name, 1);
  CHECK(file.WriteInt("n", "i", -12));
  CHECK(file.WriteDouble("n", "d2", 1234567.0));
  CHECK(file.WriteString("n", "s", "\"quoted text\""));
  CHECK(contains(path, "[n]\r\ni=-12\r\nd2=1.23457e+06\r\ns=\"quoted text\"\r\n"));
  CHECK(file.ReadInt("n", "i") == -12);
  CHECK(file.ReadDouble("n", "d2") == 1234570.0);
  CHECK(same(received(file.ReadString("n", "s")), "quoted text"));

  // Copies and assignment share the bound path; Open changes nothing.
  CQnIniFile copy(file);
  CQnIniFile assigned;
  CHECK(same(received(assigned.ReadString("n", "s")), "_TheDefault_"));
  assigned = copy;
  CHECK(assigned.Open(CString("other.ini"), 0));
  assigned.Close();
  CHECK(assigned.ReadInt("n", "i") == -12 && copy.ReadInt("n", "i") == -12);

  // Created by the host, deleted by the host through the virtual destructor.
  CQnIniFile* heap = new CQnIniFile(name, 1);
  CHECK(heap->WriteString("n", "added", "1"));
  delete heap;
  CHECK(freed(heap));
  CHECK(CQnIniFile::FileReadInt(path, "n", "added") == 1);

  // Created by the library (a MiniHandle is a CQnIniFile on the process
  // heap), used and deleted by the host.
  MiniHandle handle = mini_open_ex(path, QNUTIL_MINI_READ);
  auto* library_object = reinterpret_cast<CQnIniFile*>(handle);
  CHECK(!walk_checks || heap_block_in_use(library_object));
  CHECK(same(received(library_object->ReadString("n", "s")), "quoted text"));
  delete library_object;
  CHECK(freed(library_object));

  // Created by the host, used and deleted by the library.
  auto* host_object = new CQnIniFile(name, 1);
  handle = reinterpret_cast<MiniHandle>(host_object);
  CHECK(mini_write_long(handle, "m", "long", 77) == QNUTIL_OK);
  long value = 0;
  CHECK(mini_read_long(handle, "m", "long", &value) == QNUTIL_OK && value == 77);
  CHECK(mini_close(&handle) == 1);
  CHECK(freed(host_object));
}

constexpr const char* kGlass =
    "[Material]\r\nName=Glas\r\n[Glas]\r\nkdiffus=0.5\r\nOe=4\r\nBits=5\r\nTesttextur=wood.bmp\r\n";

constexpr const char* kTexture = "C:\\Texturen\\Bl\366cke.bmp";  // \366: o-umlaut

void material_file() {
  const char* path = HOST_FOLDER "\\glass.mat";
  write_file(path, kGlass);
  const CString file(path);
  CQnMatFile mat(file);
  CHECK(mat.IsLoaded() == 1);
  matTyp* m = mat.GetMaterialPtr();
  CHECK(m->kdiffus == 0.5f && m->kambient == 0.4f && m->Oe == 4.0f && m->oePow == 8.0f);
  CHECK(m->oeInvPow == -0.125f && m->Bits == 5u && m->RGBDiffus[1] == 0.4f);
  m->RGBDiffus[0] = 0.25f;
  m->RGBSpiegel[2] = 1.0f;
  CHECK(mat.Write() == 1);
  // The fields set through the pointer are the ones written.
  CHECK(contains(path, "\r\nBits=4\r\n"));
  CHECK(contains(path, "\r\nRGBDiffus=0.25,0.4,0.4\r\nRGBSpiegel=0.5,0.5,1\r\n"));

  // Names and paths in Windows-1252, through host strings both ways.
  CString name("x");
  mat.GetLogName(name);
  CHECK(same(name, "Glas"));
  mat.SetLogName(CString("Gl\xe4ser f\xfcr Fenster"));
  mat.SetTestTexturePath(CString(kTexture));
  CString texture;
  mat.GetTestTexturePath(texture);
  CHECK(same(texture, kTexture));
  mat.GetLogName(name);
  CHECK(same(name, "Gl\xe4ser f\xfcr Fenster"));
  CHECK(mat.Write(file) == 1);
  CHECK(contains(path, "Testtextur=C:\\Texturen\\Bl\366cke.bmp\r\n"));

  // Copies keep their own record and strings.
  CQnMatFile copy(mat);
  CQnMatFile* assigned = new CQnMatFile;
  *assigned = mat;
  m->kdiffus = 0.9f;
  mat.SetTestTexturePath(CString("other.bmp"));
  CQnMatFile* copies[] = {&copy, assigned};
  for (CQnMatFile* other : copies) {
    CHECK(other->IsLoaded() == 1 && other->GetMaterialPtr()->kdiffus == 0.5f);
    other->GetTestTexturePath(texture);
    CHECK(same(texture, kTexture));
  }
  delete assigned;
  CHECK(freed(assigned));
}

void print_image() {
  CHECK(gdiPlusInit() == 1);
  // An 8 x 8 opaque red image, bottom-up BGRA.
  unsigned char bits[8 * 8 * 4];
  for (int i = 0; i < 8 * 8 * 4; i += 4) {
    bits[i] = 0;
    bits[i + 1] = 0;
    bits[i + 2] = 255;
    bits[i + 3] = 0;
  }
  void* image = nullptr;
  CHECK(gdiPlusBitmapFromBits(bits, 8, 8, 4, 4, 255, 1, &image) == 1);

  BitmapInfoHeader info{sizeof(BitmapInfoHeader), 16, -16, 1, 32, 0, 0, 0, 0, 0, 0};
  void* canvas_bits = nullptr;
  HDC__* dc = CreateCompatibleDC(nullptr);
  void* canvas = CreateDIBSection(dc, &info, 0, &canvas_bits, nullptr, 0);
  void* previous = SelectObject(dc, canvas);
  auto* pixels = static_cast<unsigned*>(canvas_bits);
  memset(pixels, 0, 16 * 16 * 4);

  CHECK(gdiPlusPrintImage(static_cast<Gdiplus::Bitmap*>(image), dc, 8, 8, 0.5f, 0.5f) == 1);
  GdiFlush();
  // Cleared to white, the image drawn at (8, 8) in scaled units: device
  // pixels 4 to 7 are red, their edges filtered.
  CHECK((pixels[0] & 0xFFFFFF) == 0xFFFFFF);
  CHECK((pixels[15 * 16 + 15] & 0xFFFFFF) == 0xFFFFFF);
  CHECK((pixels[5 * 16 + 5] & 0xFFFFFF) == 0xFF0000 && (pixels[6 * 16 + 6] & 0xFFFFFF) == 0xFF0000);
  CHECK(gdiPlusPrintImage(nullptr, dc, 0, 0, 1.0f, 1.0f) == 0);

  SelectObject(dc, previous);
  DeleteObject(canvas);
  DeleteDC(dc);
  CHECK(gdiPlusFreeImage(image) == 1);
  CHECK(gdiPlusExit() == 1);
}

}  // namespace

extern "C" void __cdecl host_main() {
  walk_checks = heap_walk_sees_frees();
  CreateDirectoryA(HOST_FOLDER, nullptr);
  CHECK(sizeof(CQnIniFile) == 3 * sizeof(void*));
  CHECK(sizeof(CQnMatFile) == (sizeof(void*) == 4 ? 84u : 104u));
  CHECK(QnUtil_GetVersion() == QNUTIL_VERSION);
  ini_static_forms();
  ini_objects();
  material_file();
  print_image();
  // Every string the library made with its own manager was released once
  // through it; every host-manager string it made or kept is freed.
  CHECK(host::string_counts.library_frees == library_strings_received);
  CHECK(host::string_counts.host_allocations == host::string_counts.host_frees);
  printf("library strings received %d, released %d; host strings allocated %d, freed %d\n",
         library_strings_received, host::string_counts.library_frees,
         host::string_counts.host_allocations, host::string_counts.host_frees);
  if (!walk_checks) printf("heap walk cannot see frees here: ownership checked by heap errors\n");
  printf("%d passed, %d failed\n", passed, failed);
  fflush(nullptr);
  ExitProcess(failed == 0 ? 0 : 1);
}
