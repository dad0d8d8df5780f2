/* HIERFIT from C, and from whatever calls C: two documents in, a report in any format out.
 *
 *     hf_settings* settings = hf_settings_new();
 *     hf_run_t* run;
 *     if (hf_run(pmml, pmml_size, statxml, statxml_size, settings, &run) == HF_OK) {
 *         char* page;
 *         size_t size;
 *         if (hf_render(run, "html", settings, &page, &size) == HF_OK) { ... hf_free(page); }
 *     }
 *     if (hf_error(run)) puts(hf_error(run));
 *     hf_run_free(run);
 *     hf_settings_free(settings);
 *
 * Texts are UTF-8. Those that a function returns end in a zero byte and belong to the object that they were asked of;
 * they stay until the next call on it. A run or a settings object may be used by one thread at a time, different ones
 * by different threads. No function reads or writes a file of the caller's, prints, or ends the process; language
 * catalogues, chart templates and modules are found from where this library lies.
 */
#ifndef HIERFIT_H
#define HIERFIT_H

#include <stddef.h>

#if defined(_WIN32)
#define HF_API
#else
#define HF_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* What a call came to. The program's exit statuses are the same. */
enum {
    HF_OK = 0,
    HF_USAGE = 1,      /* a setting, a format or an argument is wrong */
    HF_UNREADABLE = 2, /* a document could not be read, or the run broke off */
    HF_UNWRITABLE = 3, /* what was asked for could not be made; memory is short, say */
    HF_MISSING = 4     /* the installation lacks a part: the procedure's module, a language, a format's module */
};

typedef struct hf_settings hf_settings;
typedef struct hf_run_t hf_run_t;

/* "0.1.0". */
HF_API const char* hf_version(void);

/* All settings at their defaults; NULL if memory is short. */
HF_API hf_settings* hf_settings_new(void);

/* Sets one of the program's long options, written without its dashes. Those for a run: "lang", "variables", "values",
 * "templates"; for a format: "title", "author", "static", "standalone", "charts", "color", "scale", "only",
 * "style", "digits". Options without a value,
 * such as "static", take "true" or "false". "only" takes names with commas between them and replaces what was set
 * before; "" chooses everything. Two keys have no option: "pmml" and "statxml" name the documents in diagnostics and in
 * what is rendered ("model.pmml" and "model.statxml" if they are not set). HF_OK or HF_USAGE, after which
 * hf_settings_error says why; the setting stays as it was. */
HF_API int hf_settings_set(hf_settings* settings, const char* key, const char* value);

/* Why the last hf_settings_set failed; NULL when it did not. */
HF_API const char* hf_settings_error(const hf_settings* settings);

HF_API void hf_settings_free(hf_settings* settings);

/* Runs the procedure on a PMML document of `pmml_size` bytes and a StatXML document of `statxml_size` bytes. `settings`
 * may be NULL. Gives what hf_outcome gives, and a run whatever it came to, unless memory is too short even for that:
 * then HF_UNWRITABLE, and `*run` is NULL. A run that memory was too short for is HF_UNREADABLE, without diagnostics, and
 * hf_error says so. */
HF_API int hf_run(const char* pmml, size_t pmml_size, const char* statxml, size_t statxml_size,
                  const hf_settings* settings, hf_run_t** run);

/* A run from a document that was saved as "json". */
HF_API int hf_read_json(const char* text, size_t size, hf_run_t** run);

/* HF_OK when there is something to render, HF_UNREADABLE or HF_MISSING when not. HF_UNWRITABLE for NULL. */
HF_API int hf_outcome(const hf_run_t* run);

/* What the run noticed on its way, the reason of a failure among it. */
HF_API size_t hf_diagnostic_count(const hf_run_t* run);

/* `level`: 1 information, 2 warning, 3 error. `place`: "model.statxml:41:7", document, line and column from 1; NULL
 * where none is known. HF_OK, or HF_USAGE when there is no diagnostic of this number, counted from 0. */
HF_API int hf_diagnostic(hf_run_t* run, size_t number, int* level, const char** text, const char** place);

/* Why the run, or the last hf_render of it, failed, in one line; NULL when it did not. */
HF_API const char* hf_error(const hf_run_t* run);

/* The report in a format of the program: "html", "text", "json", "markdown", "latex", "docx", "xlsx", "csv", "svg",
 * "png". The last two hold one chart: "only" must name exactly one. `settings` may be NULL. `*bytes` is the caller's,
 * to be freed by hf_free; after its
 * `*size` bytes stands a zero byte more. On failure `*bytes` is NULL and hf_error says why. HF_OK, HF_USAGE for an
 * unknown format or name, HF_UNREADABLE for a run that issued nothing, HF_UNWRITABLE, HF_MISSING. */
HF_API int hf_render(hf_run_t* run, const char* format, const hf_settings* settings, char** bytes, size_t* size);

HF_API void hf_free(char* bytes);

HF_API void hf_run_free(hf_run_t* run);

#ifdef __cplusplus
}
#endif

#endif
