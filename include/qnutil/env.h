/*
 * Environment store: a hierarchical, typed key/value store with its own
 * text file format.
 *
 * An environment is a tree of named elements: sections at the top, and
 * inside them data elements (text), blocks (lists of elements) and
 * external elements (an opaque 32-bit value of the caller's). Elements are
 * addressed by a section name plus a path of names separated by the
 * delimiter ("@" by default); a name may be followed by a component of
 * digits, its occurrence number among siblings of the same name
 * ("wall@2@height" is the height of the second wall).
 *
 * Every function returns one of the ENV_* status codes below; getters
 * return the envId of the environment that answered (which callers keep
 * non-negative) on success. Internal faults are reported through
 * QnUtil_Message with the source unit "qnutilenv".
 *
 * Working registers (path tokens, the iterator of env_get_first and
 * env_get_next) are per thread: distinct root environments may be used
 * from different threads at the same time. One environment, its
 * sub-environments and its fallback chain are used by one thread at a time.
 */
#ifndef QNUTIL_ENV_H
#define QNUTIL_ENV_H

#include "common.h"

#define ENV_OK 0
#define ENV_DATA (-1)
#define ENV_BLOCK (-2)
#define ENV_EXTERNAL (-3)
#define ENV_NOT_FOUND (-4)
#define ENV_SYNTAX (-5)
#define ENV_BAD_PATH (-6)
#define ENV_TOO_SMALL (-7)
#define ENV_IN_USE (-8)
#define ENV_ERROR (-10)

QNUTIL_EXTERN_C_BEGIN

/** Opaque handle of an environment: a root from env_open, or a
 *  sub-environment anchored at one element. Released with env_close. */
typedef struct EnvHandle EnvHandle;

/** Character source of env_read: the next byte, or -1 at the end. */
typedef int(QNUTIL_CALL* EnvGetChar)(void* context);
/** Character sink of env_write: one byte (ch >= 0). */
typedef void(QNUTIL_CALL* EnvPutChar)(int ch, void* context);
/** Callback of env_traverse: sub is a sub-environment on the element
 *  (closed after the call), path its walk path or null for a section. */
typedef void(QNUTIL_CALL* EnvTraverseCallback)(EnvHandle* sub, const char* section,
                                               const char* path, void* user);
/** Callback of env_traverse_leafs (its result is ignored). */
typedef int(QNUTIL_CALL* EnvLeafCallback)(EnvHandle* sub, const char* section, const char* path,
                                          void* user);

/* ---- handles ---------------------------------------------------------- */

/** Makes an empty root environment tagged envId. A non-null fallback (a root
 *  environment) is asked when a getter finds nothing here; it cannot be
 *  closed while this environment lives. */
QNUTIL_API EnvHandle* QNUTIL_CALL env_open(long envId, EnvHandle* fallback);

/** Closes env: 0, -8 while sub-environments or fallback users of it live,
 *  -10 for null. Closing a root frees its tree; with closeFallback != 0 its
 *  fallback is closed next and that result returned. */
QNUTIL_API int QNUTIL_CALL env_close(EnvHandle* env, int closeFallback);

/** Kind of the addressed element: -1 data, -2 block, -3 external, -4 not
 *  found, -6 bad path, -10 null handle. direct = 0 searches each path
 *  component breadth-first. Section null on a root: -2 if any section
 *  exists. Path null on a sub-environment: the anchor's kind (an empty
 *  block counts as not found). */
QNUTIL_API int QNUTIL_CALL env_check(EnvHandle* env, const char* section, const char* path,
                                     int direct);
/** 1 if env_check finds an element of any kind, else 0. */
QNUTIL_API int QNUTIL_CALL env_exist(EnvHandle* env, const char* section, const char* path,
                                     int direct);
/** 1 if env_check finds a block, else 0. */
QNUTIL_API int QNUTIL_CALL env_exist_block(EnvHandle* env, const char* section, const char* path,
                                           int direct);
/** 1 if env_check finds a data element, else 0. */
QNUTIL_API int QNUTIL_CALL env_exist_data(EnvHandle* env, const char* section, const char* path,
                                          int direct);
/** 1 if env_check finds an external element, else 0. */
QNUTIL_API int QNUTIL_CALL env_exist_external(EnvHandle* env, const char* section, const char* path,
                                              int direct);

/** Sub-environment anchored at the addressed element (any kind); it shares
 *  envId and fallback with env and keeps env from closing. Null when not
 *  found, on a bad path or a null handle. */
QNUTIL_API EnvHandle* QNUTIL_CALL env_open_subenv(EnvHandle* env, const char* section,
                                                  const char* path, int direct);
/** As env_open_subenv (direct), creating the section and path first when
 *  missing (the new last element is external with value 0 until something
 *  is put beneath it). Null if that fails. */
QNUTIL_API EnvHandle* QNUTIL_CALL env_create_subenv(EnvHandle* env, const char* section,
                                                    const char* path);

/** Deletes the addressed element with all its content (path null: the
 *  first section named section, roots only): 0, -4, -6, -10. */
QNUTIL_API int QNUTIL_CALL env_delete(EnvHandle* env, const char* section, const char* path);
/** Number of elements of the addressed block (section null on a root: of
 *  sections); 0 if not found or not a block; -6 bad path; -10 null. */
QNUTIL_API int QNUTIL_CALL env_count_elements(EnvHandle* env, const char* section, const char* path,
                                              int direct);
/** Number of siblings of the addressed element named like the path's last
 *  component; 0 if not found; -6 bad path; -10 null. */
QNUTIL_API int QNUTIL_CALL env_count_path(EnvHandle* env, const char* section, const char* path,
                                          int direct);
/** Copies every leaf of src into dst at the same address. mode 0: only where
 *  dst has nothing; 1: as a new occurrence; 2: always; 3: only where dst
 *  has an element. External leaves are skipped; data texts longer than 254
 *  bytes stop the copy. 0 if every leaf went through, else -10. */
QNUTIL_API int QNUTIL_CALL env_sink(EnvHandle* dst, EnvHandle* src, int mode);
/** env_sink of the block at section/path of src into the same address of
 *  dst (created when missing). */
QNUTIL_API int QNUTIL_CALL env_copy_block(EnvHandle* dst, EnvHandle* src, const char* section,
                                          const char* path, int mode);

/* ---- delimiter and paths ---------------------------------------------- */

/** Makes delim (at most 254 bytes, every character a separator) the path
 *  delimiter unless it is null or empty; returns the previous one in a
 *  buffer that the next call on this thread overwrites. Process-wide. */
QNUTIL_API char* QNUTIL_CALL env_set_delimiter(const char* delim);
/** Joins first and the following texts up to a null argument with the
 *  delimiter's first character into buf: 0, or -7 if it does not fit. */
QNUTIL_API int QNUTIL_CALL env_create_path(int bufSize, char* buf, const char* first, ...);
/** The same from a null-terminated array of components. */
QNUTIL_API int QNUTIL_CALL env_create_array_path(int bufSize, char* buf, const char** parts);

/* ---- puts (missing sections and paths are created) -------------------- */

/** Stores text (or, when text is null, an external element with value
 *  external) at the address, replacing what was there. A bad path stores
 *  nothing and gives 0; -10 null handle. */
QNUTIL_API int QNUTIL_CALL env_put_core(EnvHandle* env, const char* section, const char* path,
                                        const char* text, unsigned external);
/** Stores text (null → -10). */
QNUTIL_API int QNUTIL_CALL env_put(EnvHandle* env, const char* section, const char* path,
                                   const char* text);
/** Same as env_put. */
QNUTIL_API int QNUTIL_CALL env_put_string(EnvHandle* env, const char* section, const char* path,
                                          const char* text);
/** Stores an external element holding value. */
QNUTIL_API int QNUTIL_CALL env_put_external(EnvHandle* env, const char* section, const char* path,
                                            unsigned value);
/** Stores value as "%ld". */
QNUTIL_API int QNUTIL_CALL env_put_long(EnvHandle* env, const char* section, const char* path,
                                        long value);
/** Stores value as "%g" (six significant digits: reading gives back the
 *  rounded value). */
QNUTIL_API int QNUTIL_CALL env_put_double(EnvHandle* env, const char* section, const char* path,
                                          double value);
/** Stores a printf-formatted text of at most 1023 bytes (else -10). */
QNUTIL_API int QNUTIL_CALL env_put_format(EnvHandle* env, const char* section, const char* path,
                                          const char* format, ...);
/** Stores count values joined with "," (at most 1023 bytes: values that do
 *  not fit are dropped). count < 1 or values null → -10. */
QNUTIL_API int QNUTIL_CALL env_put_longs(EnvHandle* env, const char* section, const char* path,
                                         int count, const long* values);
/** As env_put_longs with "%g" values. */
QNUTIL_API int QNUTIL_CALL env_put_doubles(EnvHandle* env, const char* section, const char* path,
                                           int count, const double* values);
/** As env_put_longs with texts (joined as they are, without quoting). */
QNUTIL_API int QNUTIL_CALL env_put_strings(EnvHandle* env, const char* section, const char* path,
                                           int count, const char** values);

/* ---- gets (a root's fallback answers what it lacks) ------------------- */

/** Copies the data text into buf (bufSize counts the terminator): envId;
 *  -7 if it does not fit; -1 for a block or external element; -4, -6, -10. */
QNUTIL_API int QNUTIL_CALL env_get(EnvHandle* env, const char* section, const char* path,
                                   int direct, int bufSize, char* buf);
/** Points *text at the stored data text itself (library memory, valid
 *  until the element changes): envId; -1 for block or external. */
QNUTIL_API int QNUTIL_CALL env_get_reference(EnvHandle* env, const char* section, const char* path,
                                             int direct, char** text);
/** Copies the data text into buf without a size check; buf becomes "" on
 *  failure. */
QNUTIL_API int QNUTIL_CALL env_get_string(EnvHandle* env, const char* section, const char* path,
                                          int direct, char* buf);
/** Parses the data text as one long: envId; -5 not a number; -7 several. */
QNUTIL_API int QNUTIL_CALL env_get_long(EnvHandle* env, const char* section, const char* path,
                                        int direct, long* value);
/** Parses the data text as one double ("D" exponents accepted). */
QNUTIL_API int QNUTIL_CALL env_get_double(EnvHandle* env, const char* section, const char* path,
                                          int direct, double* value);
/** Parses a comma-separated list of longs; *count is the capacity on entry
 *  and the number stored on return (0 on any failure; -7 over capacity). */
QNUTIL_API int QNUTIL_CALL env_get_longs(EnvHandle* env, const char* section, const char* path,
                                         int direct, int* count, long* values);
/** As env_get_longs for doubles. */
QNUTIL_API int QNUTIL_CALL env_get_doubles(EnvHandle* env, const char* section, const char* path,
                                           int direct, int* count, double* values);
/** As env_get_longs for items of letters and digits, each copied into
 *  values[i] (size bytes; too long or a null buffer → -7). */
QNUTIL_API int QNUTIL_CALL env_get_strings(EnvHandle* env, const char* section, const char* path,
                                           int direct, int* count, int size, char** values);
/** Value of an external element: envId; -3 for data or block. */
QNUTIL_API int QNUTIL_CALL env_get_external(EnvHandle* env, const char* section, const char* path,
                                            int direct, unsigned* value);
/** Length of the data text; 0 if not data or not found. */
QNUTIL_API int QNUTIL_CALL env_data_length(EnvHandle* env, const char* section, const char* path,
                                           int direct);
/** The pos-th (1-based) element of the block at section/path (path null: of
 *  the section; section null on a root: the pos-th section). Result its
 *  kind (-1, -2, -3) with *envIdOut set, the name and data text copied when
 *  shorter than their buffers (else what fits and -7), an external value in
 *  *external; pos < 1 or past the end → -4. Null outputs are skipped. */
QNUTIL_API int QNUTIL_CALL env_get_pos(EnvHandle* env, const char* section, const char* path,
                                       int direct, int pos, long* envIdOut, int nameSize,
                                       char* name, int valueSize, char* value, unsigned* external);
/** Inserts an external element (value 0) named newName before the
 *  addressed element: 0, -4, -10 (also for a bad path). Path null on a
 *  root: an empty section before the section named section (0 even if
 *  there is none). */
QNUTIL_API int QNUTIL_CALL env_insert_before(EnvHandle* env, const char* section, const char* path,
                                             const char* newName);

/* ---- text files -------------------------------------------------------- */

/** Replaces the content of the root env with the environment read from
 *  getChar: 0, -5 on a syntax error (sections completed before it are
 *  kept), -10 for a null or sub-environment handle. */
QNUTIL_API int QNUTIL_CALL env_read(EnvGetChar getChar, void* context, EnvHandle* env);
/** env_read from a text file (CR LF read as LF; a 0x1A or 0xFF byte ends
 *  the input): -10 with a message if it cannot be opened. */
QNUTIL_API int QNUTIL_CALL env_read_file(const char* fileName, EnvHandle* env);
/** Writes the root env in the text format through putChar. */
QNUTIL_API void QNUTIL_CALL env_write(EnvPutChar putChar, void* context, EnvHandle* env);
/** Writes the root env to a text file (platform line ends); a message if it
 *  cannot be opened. */
QNUTIL_API void QNUTIL_CALL env_write_file(const char* fileName, EnvHandle* env);

/* ---- traversal --------------------------------------------------------- */

/** Starts an iteration over the block at section/path (section null on a
 *  root: over the sections) with env_get_pos at position 1; arms this
 *  thread's iterator when an element was found. */
QNUTIL_API int QNUTIL_CALL env_get_first(EnvHandle* env, const char* section, const char* path,
                                         int direct, long* envId, int nameSize, char* name,
                                         int valueSize, char* value, unsigned* external);
/** The next element of the iteration: its kind, or -4 after the last one
 *  (or when not armed); -7 if name or text did not fit (ends it). */
QNUTIL_API int QNUTIL_CALL env_get_next(int nameSize, char* name, int valueSize, char* value,
                                        unsigned* external);
/** Calls callback for every element of the block at section/path (section
 *  null on a root: every section) with a sub-environment on it and its walk
 *  path (path@name@N): 0; -2 if the block is missing or empty; -6; -10. */
QNUTIL_API int QNUTIL_CALL env_traverse(EnvHandle* env, const char* section, const char* path,
                                        int direct, EnvTraverseCallback callback, void* user);
/** Calls callback for every data and external element of the whole
 *  environment, depth first in file order, with its full walk path
 *  ("frame@1@color@1"): 0, or -10 if the walk failed. */
QNUTIL_API int QNUTIL_CALL env_traverse_leafs(EnvHandle* env, EnvLeafCallback callback, void* user);
/** Lists the names of the block's elements into buf as
 *  separator name separator name ... separator: 0; -2 if the address is not
 *  a block; -7 if bufSize < 2 or the list does not fit (buf ""). */
QNUTIL_API int QNUTIL_CALL env_list_elem_names(EnvHandle* env, const char* section,
                                               const char* path, int direct, char separator,
                                               int bufSize, char* buf);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_ENV_H */
