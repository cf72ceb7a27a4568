// qnutil env: read, query, change and check environment store files.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "failure.h"
#include "json_output.h"
#include "qnutil/qnutil.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_env(int argc, char** argv);

const Command kEnv{
    "env", "read, query, change and check environment files",
    "env cat FILE | get FILE SECTION PATH | set FILE SECTION PATH VALUE | tree FILE [--json] |"
    " check FILE\n"
    "  cat    read FILE and write it to stdout in canonical form\n"
    "  get    print the text at SECTION/PATH (path components separated by '@')\n"
    "  set    store VALUE at SECTION/PATH (created when missing) and rewrite FILE\n"
    "  tree   list every leaf with its walk path (--json: an array of section, path, value)\n"
    "  check  exit 0 if FILE reads without error, else 1 with the reader's message",
    run_env};

void QNUTIL_CALL to_stdout(int ch, void*) { std::putchar(ch); }

// The environment of a file; null, after saying why, on failure.
EnvHandle* open_file(const char* file) {
  if (const std::string problem = read_problem(file); !problem.empty()) {
    fail("env", file, problem);
    return nullptr;
  }
  EnvHandle* env = env_open(0, nullptr);
  if (env_read_file(file, env) == ENV_OK) return env;
  env_close(env, 0);
  fail("env", file, "syntax error (the reader's message says where)");
  return nullptr;
}

void QNUTIL_CALL to_string(int ch, void* text) {
  if (ch >= 0) static_cast<std::string*>(text)->push_back(static_cast<char>(ch));
}

std::string canonical_text(EnvHandle* env) {
  std::string text;
  env_write(to_string, &text, env);
  return text;
}

// user: a JsonArrayWriter for --json output, else null for text lines.
int QNUTIL_CALL print_leaf(EnvHandle* leaf, const char* section, const char* path, void* user) {
  char* text = nullptr;
  const bool data = env_get_reference(leaf, nullptr, nullptr, 1, &text) >= 0;
  if (auto* json = static_cast<JsonArrayWriter*>(user)) {
    json->item("{\"section\": " + json_string(section) + ", \"path\": " + json_string(path) +
               ", \"value\": " + (data ? json_string(text) : std::string("null")) + "}");
  } else if (data) {
    std::printf("[%s] %s = %s\n", section, path, text);
  } else {
    std::printf("[%s] %s (external)\n", section, path);
  }
  return 0;
}

int cat(const char* file) {
  EnvHandle* env = open_file(file);
  if (!env) return 1;
  env_write(to_stdout, nullptr, env);
  env_close(env, 0);
  return 0;
}

int get(const char* file, const char* section, const char* path) {
  EnvHandle* env = open_file(file);
  if (!env) return 1;
  char* text = nullptr;
  const int result = env_get_reference(env, section, path, 1, &text);
  if (result >= 0) {
    std::printf("%s\n", text);
  } else if (result == ENV_DATA) {
    std::fprintf(stderr, "qnutil env: [%s] %s is a block\n", section, path);
  } else {
    std::fprintf(stderr, "qnutil env: [%s] %s not found (%d)\n", section, path, result);
  }
  env_close(env, 0);
  return result >= 0 ? 0 : 1;
}

// A missing FILE starts an empty environment. The library does not report
// a failed write (the old file then stays whole), so the file is read back.
int set(const char* file, const char* section, const char* path, const char* value) {
  std::error_code error;
  EnvHandle* env = std::filesystem::exists(file, error) ? open_file(file) : env_open(0, nullptr);
  if (!env) return 1;
  const int result = env_put(env, section, path, value);
  if (result != ENV_OK) {
    env_close(env, 0);
    return fail("env", std::string("[") + section + "] " + path,
                "cannot be stored there (status " + std::to_string(result) + ")");
  }
  env_write_file(file, env);
  const std::string wanted = canonical_text(env);
  env_close(env, 0);
  EnvHandle* written = env_open(0, nullptr);
  const bool saved = read_problem(file).empty() && env_read_file(file, written) == ENV_OK &&
                     canonical_text(written) == wanted;
  env_close(written, 0);
  return saved ? 0 : fail("env", file, write_problem(file));
}

int tree(const char* file, bool as_json) {
  EnvHandle* env = open_file(file);
  if (!env) return 1;
  if (as_json) {
    JsonArrayWriter json;
    env_traverse_leafs(env, print_leaf, &json);
  } else {
    env_traverse_leafs(env, print_leaf, nullptr);
  }
  env_close(env, 0);
  return 0;
}

int check(const char* file) {
  EnvHandle* env = open_file(file);
  if (!env) return 1;
  std::printf("%s: ok, %d sections\n", file, env_count_elements(env, nullptr, nullptr, 1));
  env_close(env, 0);
  return 0;
}

int run_env(int argc, char** argv) {
  const bool as_json = take_json_flag(argc, argv);
  if (argc < 3) return usage_error(kEnv);
  const std::string action = argv[1];
  if (as_json && action != "tree") return usage_error(kEnv);
  if (action == "cat" && argc == 3) return cat(argv[2]);
  if (action == "get" && argc == 5) return get(argv[2], argv[3], argv[4]);
  if (action == "set" && argc == 6) return set(argv[2], argv[3], argv[4], argv[5]);
  if (action == "tree" && argc == 3) return tree(argv[2], as_json);
  if (action == "check" && argc == 3) return check(argv[2]);
  return usage_error(kEnv);
}

int demo_env(const DemoContext& context) {
  const std::string sample = (context.samples / "env" / "building.env").string();
  EnvHandle* env = open_file(sample.c_str());
  if (!env) return 1;
  double height = 0;
  long storeys = 0;
  double scale = 0;
  env_get_double(env, "Walls", "wall@2@height", 1, &height);
  env_get_long(env, "Project", "storeys", 1, &storeys);
  env_get_double(env, "Project", "scale", 1, &scale);
  std::printf("%s: %d sections; 'wall@2@height' = %g, storeys = %ld, scale 1D2 = %g\n",
              sample.c_str(), env_count_elements(env, nullptr, nullptr, 1), height, storeys, scale);
  long openings[8];
  int count = 8;
  env_get_longs(env, "Walls", "wall@2@openings", 1, &count, openings);
  std::printf("the second wall has %d openings; every leaf with its walk path:\n", count);
  env_traverse_leafs(env, print_leaf, nullptr);
  env_put_double(env, "Walls", "wall@3@height", 2.5);
  env_put(env, "Walls", "wall@3@layer", "Timber");
  const std::string out = (context.output / "building.env").string();
  env_write_file(out.c_str(), env);
  env_close(env, 0);
  std::printf("\nwith a third wall added, written to %s:\n", out.c_str());
  return cat(out.c_str());
}

const RegisterCommand registered{kEnv};
const RegisterDemoStep demo{{20, "environment store", demo_env}};

}  // namespace
}  // namespace qnutil_tool
