// Compiles and runs what README.md shows of embedding, as it stands there, against an installed prefix:
// node readme.mjs PREFIX MODEL_DIR WORK_DIR COMPILER LIBDIR LANGUAGE...

import { execFileSync, spawnSync } from "node:child_process";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const [prefix, model, work, compiler, libdir, ...languages] = process.argv.slice(2);
const root = join(import.meta.dirname ?? new URL(".", import.meta.url).pathname, "../..");
const readme = readFileSync(join(root, "README.md"), "utf8");
const folder = join(work, "readme");
mkdirSync(folder, { recursive: true });

/** The one block of a language. */
function findBlock(language) {
  const blocks = [...readme.matchAll(new RegExp(`^\`\`\`${language}\n(.*?)^\`\`\`$`, "gms"))];
  if (blocks.length !== 1) throw new Error(`README.md has ${blocks.length} blocks of ${language}, not one`);
  return blocks[0][1];
}

/** A block's lines of the preprocessor, and the statements below them. */
function partIncludes(block) {
  const lines = block.split("\n");
  const isAbove = (line) => line.startsWith("#");
  return [lines.filter(isAbove).join("\n"), lines.filter((line) => !isAbove(line)).join("\n")];
}

function expect(output, beginning, language) {
  if (!output.startsWith(beginning)) throw new Error(`${language}: printed ${output.slice(0, 200)}`);
}

const run = (command, args, options = {}) => execFileSync(command, args, { encoding: "latin1", ...options });
const documents = [join(model, "model.pmml"), join(model, "model.statxml")];

/** A project whose one program is made by the lines that README.md has for CMake. */
function build(name, language, source) {
  const project = join(folder, name);
  mkdirSync(project, { recursive: true });
  writeFileSync(join(project, `program.${name}`), source);
  writeFileSync(join(project, "CMakeLists.txt"),
    `cmake_minimum_required(VERSION 3.25)\nproject(readme LANGUAGES ${language})\n` +
    `add_executable(program program.${name})\n${findBlock("cmake")}`);
  run("cmake", ["-S", project, "-B", join(project, "build"), `-DCMAKE_PREFIX_PATH=${prefix}`,
    `-DCMAKE_CXX_COMPILER=${compiler}`]);
  run("cmake", ["--build", join(project, "build")]);
  return run(join(project, "build/program"), documents, { maxBuffer: 1 << 28 });
}

function tryC() {
  const [includes, statements] = partIncludes(findBlock("c"));
  expect(build("c", "C CXX", `#include <stdio.h>\n#include <stdlib.h>\n${includes}
static char* read_whole(const char* path, size_t* size) {
  FILE* file = fopen(path, "rb");
  char* text = malloc(1 << 22);
  *size = fread(text, 1, 1 << 22, file);
  fclose(file);
  return text;
}
int main(int argc, char** argv) {
  size_t pmml_size, statxml_size;
  char* pmml = read_whole(argv[argc - 2], &pmml_size);
  char* statxml = read_whole(argv[argc - 1], &statxml_size);
${statements}
  free(pmml);
  free(statxml);
  return 0;
}
`), "<!DOCTYPE html>", "c");
}

function tryCpp() {
  const [includes, statements] = partIncludes(findBlock("cpp"));
  expect(build("cpp", "CXX", `#include <cstdio>\n#include <fstream>\n#include <iterator>\n${includes}
static std::string ReadWhole(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}
int main(int, char** arguments) {
  const std::string pmmlText = ReadWhole(arguments[1]);
  const std::string statXmlText = ReadWhole(arguments[2]);
${statements}
  const std::string& bytes = std::get<std::string>(file);
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() ? 0 : 1;
}
`), "PK\u0003\u0004", "cpp");
}

function tryPython() {
  const python = "/usr/bin/python3";
  if (spawnSync(python, ["-c", "import statsmodels, pandas"]).status !== 0) process.exit(77);
  const program = join(folder, "readme.py");
  writeFileSync(program, `import itertools, pandas, hierfit
import statsmodels.formula.api as smf
cells = itertools.product("AB", "LMH", range(9))
warpbreaks = pandas.DataFrame([
    {"wool": wool, "tension": tension, "breaks": 20 + 7 * i % 23 + 3 * (wool == "A") - 5 * (tension == "H")}
    for i, (wool, tension, _) in enumerate(cells)])
${findBlock("python")}
print(open("warpbreaks.html").read())
`);
  const env = { ...process.env, HIERFIT_LIBRARY: join(prefix, libdir, "libhierfit_host.so"),
    PYTHONPATH: join(root, "bridges/python"), PYTHONDONTWRITEBYTECODE: "1" };
  expect(run(python, [program], { env, cwd: folder, maxBuffer: 1 << 28 }), "<!DOCTYPE html>", "python");
}

const tries = { c: tryC, cpp: tryCpp, python: tryPython };
for (const language of languages) tries[language]();
