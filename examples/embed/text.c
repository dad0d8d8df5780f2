/* The fixed coefficients of a model as text. text MODEL.pmml MODEL.statxml */

#include <hierfit.h>
#include <stdio.h>
#include <stdlib.h>

static char* read_whole(const char* path, size_t* size) {
    FILE* file = fopen(path, "rb");
    char* text = malloc(1 << 20);
    if (!file || !text) exit(1);
    *size = fread(text, 1, 1 << 20, file);
    fclose(file);
    return text;
}

int main(int argc, char** argv) {
    size_t sizes[3];
    char* pmml = argc == 3 ? read_whole(argv[1], &sizes[0]) : NULL;
    char* statxml = argc == 3 ? read_whole(argv[2], &sizes[1]) : NULL;
    hf_settings* settings = hf_settings_new();
    hf_run_t* run = NULL;
    char* text = NULL;
    int code = hf_settings_set(settings, "only", "FixedCoefficients");
    if (code == HF_OK) code = hf_run(pmml, sizes[0], statxml, sizes[1], settings, &run);
    if (code == HF_OK) code = hf_render(run, "text", settings, &text, &sizes[2]);
    fputs(code == HF_OK ? text : hf_error(run), stdout);
    hf_free(text);
    hf_run_free(run);
    hf_settings_free(settings);
    free(pmml);
    free(statxml);
    return code;
}
