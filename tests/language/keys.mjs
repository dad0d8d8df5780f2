// Checks that the catalogues hold what the program asks for, and that what they give can be shown.
//
//     node keys.mjs PROJECT
//
// In the code of the procedure, a text is for the reader when it is passed to a translating operation, or when it looks
// like words: it begins with a capital or a mark. Diagnostics begin small. Texts that look like words and are not for
// the reader stand in untranslated.txt.

import assert from 'node:assert/strict';
import {readFileSync, readdirSync} from 'node:fs';
import {basename, dirname, join, relative} from 'node:path';
import {test} from 'node:test';
import {fileURLToPath} from 'node:url';

import {literalsOf} from './literals.mjs';
import {listsOf, marksOf, readCatalogue} from './po.mjs';

const project = process.argv[2] ?? join(dirname(fileURLToPath(import.meta.url)), '../..');

/** The marks that the texts behind keys may use. */
const marksOfKeys = {
    'Deviation Higher': 3, 'Deviation Lower': 3, 'Deviation Same': 3,
    'Simple Higher': 3, 'Simple Lower': 3, 'Simple Same': 3,
    'Horizontal Line Deviation': 3, 'Horizontal Line Simple': 3,
    VarOfEffect: 1, kGLMM_C19_1: 1, kGLMM_C22: 1, kGLMM_C27: 1,
};

/** Sources that hold the names of the results' document, which look like words too. */
const readers = /^(HFITParseOutXML|SettingTexts|XmlReading)/;

/** Keys that come with a model's results. */
const documentKeys = [
    'Variance ', 'VarOfEffect', 'UN (^1,^2)', 'AR1 diagonal', 'AR1 rho', 'ARMA11 diagonal', 'ARMA11 rho', 'ARMA11 phi',
    'CS diagonal offset', 'CS covariance', 'TP diagonal', 'TP rho ^1', 'kGLMM_C19_1',
    ...[8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30].map(n => `kGLMM_C${n}`),
];

/** Texts that take a list of any length after their own values. */
const listKeys = [
    'EffectVar1', 'EffectVar2', 'Covariance Structure ^1 ...', 'Covariance Structure ^1 Subject Specification ^2 ...',
];

function filesIn(folder, pattern) {
    try {
        const all = readdirSync(join(project, folder), {recursive: true, withFileTypes: true});
        return all.filter(entry => entry.isFile() && pattern.test(entry.name))
            .map(entry => join(entry.parentPath ?? entry.path, entry.name)).sort();
    } catch (error) {
        if (error.code === 'ENOENT') return [];
        throw error;
    }
}

const read = path => readFileSync(path, 'utf8');
const unescapeXml = text =>
    text.replace(/&(lt|gt|quot|apos|amp);/g, (_, name) => ({lt: '<', gt: '>', quot: '"', apos: "'", amp: '&'})[name]);
const untranslated =
    new Set(read(join(dirname(fileURLToPath(import.meta.url)), 'untranslated.txt')).split('\n')
        .filter(line => line && !line.startsWith('# ')));

const isTranslator = call => /^(GetTranslatedText|Translate|LookUp|Translated|Composite)$/.test(call);
const isPlain = call => call === 'Plain';
const isCellText = call => /^(BpString|BpComposite)$/.test(call);
const isForDevelopers = call => /^(Diagnose|static_assert|assert|\w*_error)$/.test(call);

/** Whether a literal is certainly translated, certainly not, or neither. */
function certainty({calls, isFirst, flag}) {
    const [innermost = []] = calls;
    if (isFirst && innermost.some(isTranslator)) return true;
    if (isFirst && innermost.some(isPlain)) return false;
    if (isFirst && innermost.some(isCellText) && flag !== undefined) return flag;
    return calls.some(call => call.some(isForDevelopers)) ? false : undefined;
}

function looksLikeWords(text, isReader) {
    const isMarkAlone = /^\^\d$/.test(text);
    const isMarkup = /[<>]|="|&\w+;/.test(text);
    if (isMarkAlone || isMarkup || !/[A-Za-z]|[%^]\d/.test(text)) return false;
    return /^([A-Z^%[]|kGLMM_)/.test(text) && (!isReader || text.includes(' '));
}

/** What a source of the procedure asks for: the texts that a catalogue must hold. */
function wantedTexts(source, {isReader = false, isNet = true} = {}) {
    return literalsOf(source).filter(literal => {
        const isCertain = certainty(literal);
        if (isCertain !== undefined || !isNet) return isCertain === true && literal.text !== '';
        return looksLikeWords(literal.text, isReader) && !untranslated.has(literal.text.trim());
    });
}

function wantedBySources() {
    return filesIn('backend', /\.(cpp|h)$/).flatMap(path => {
        const isNet = relative(project, path).startsWith(join('backend', 'hierfit'));
        const isReader = readers.test(basename(path));
        return wantedTexts(read(path), {isReader, isNet})
            .map(({text, line}) => ({text, place: `${relative(project, path)}:${line}`}));
    });
}

function wantedByPattern(folder, names, pattern) {
    return filesIn(folder, names).flatMap(path =>
        [...read(path).matchAll(pattern)].map(match =>
            ({text: unescapeXml(match[1]), place: relative(project, path)})));
}

const wanted = [
    ...wantedBySources(),
    ...wantedByPattern('template', /\.(xml|viztemplate)$/, /\slookup="([^"]*)"/g),
    ...wantedByPattern('examples', /\.statxml$/, /\spattern="([^"]*)"\s+isKey="true"/g),
    ...[...documentKeys, ...listKeys, ...Object.keys(marksOfKeys)].map(text => ({text, place: 'keys.mjs'})),
];

const catalogues = filesIn('languages', /\.po$/).map(path => {
    const [header, ...entries] = readCatalogue(read(path));
    return {name: basename(path, '.po'), header, entries};
});

/** The faults of one translation, as sentences. */
function faultsOf({id, text, isFuzzy}) {
    const mayUse = id in marksOfKeys ? ['^1', '^2', '^3'].slice(0, marksOfKeys[id]) : marksOf(id);
    const mustUse = id in marksOfKeys ? [] : marksOf(id);
    const used = marksOf(text);
    const faults = [
        [text === '', 'has no translation'],
        [isFuzzy, 'is marked as a guess'],
        [used.some(mark => !mayUse.includes(mark)), 'has a mark that gets no value'],
        [mustUse.some(mark => !used.includes(mark)), 'lacks a mark'],
        [listsOf(id).some(list => !text.includes(list)), 'changes the list of its source'],
        [listKeys.includes(id) && listsOf(text).length !== 1, 'has no list for its items'],
        [!listKeys.includes(id) && listsOf(text).length > listsOf(id).length, 'has a list that gets no items'],
        [/kGLMM_|\bE\d{5}\b|EffectVar|VarOfEffect|EMMEANS|DATA_STRUCTURE/.test(text), 'shows a key'],
        [/\.\.\.$/.test(text), 'is no whole text'],
        [/^\s|\s$/.test(text), 'begins or ends with a blank'],
        [text.includes('\\'), 'holds a backslash'],
        [/\p{Cc}/u.test(text.replaceAll('\n', '')), 'holds a control character'],
    ];
    return faults.filter(([isFault]) => isFault).map(([, words]) => `"${id}" ${words}`);
}

test('there is an English catalogue', () => {
    assert.ok(catalogues.some(catalogue => catalogue.name === 'en'));
});

for (const {name, header, entries} of catalogues) {
    test(`${name}: the catalogue names its language`, () => {
        assert.match(header.text, new RegExp(`^Language: ${name}$`, 'm'));
        assert.match(header.text, /charset=UTF-8/);
    });

    test(`${name}: every text that the program asks for is there`, () => {
        const held = new Set(entries.map(entry => entry.id));
        const missing = wanted.filter(({text}) => !held.has(text));
        assert.deepEqual(missing.map(({text, place}) => `${place}: ${JSON.stringify(text)}`), []);
    });

    test(`${name}: every translation can be shown`, () => {
        assert.deepEqual(entries.flatMap(faultsOf), []);
    });
}

test('texts are found in sources', () => {
    const cases = [
        ['BpString("t", true)', ['t']],
        ['BpString{"Sig.", true}', ['Sig.']],
        ['BpComposite title("^1 - ^2", true);', ['^1 - ^2']],
        ['std::make_unique<BpString>("df", true)', ['df']],
        ['table.Category(BpString("F", true)).Cell(BpNumber(x, y))', ['F']],
        ['Cell(Translated("t"), Plain("Plain Words"))', ['t']],
        ['Composite("^1", value)', ['^1']],
        ['BpString("FixedEffects", false)', []],
        ['BpString("Some Column", false)', []],
        ['Translate("a", nullptr)', ['a']],
        ['fDictionary.LookUp("b")', ['b']],
        ['GetTranslatedText(key, "c")', []],
        ['struct Row { const char* f; } rows[] = {{"Std. Error"}, {"lower"}};', ['Std. Error']],
        ['constexpr auto kC8 = "kGLMM_C8";', ['kGLMM_C8']],
        ['f("Simple " /* why */ "Higher")', ['Simple Higher']],
        ['f(R"(Target\\: ^1)")', ['Target\\: ^1']],
        ['f("Target\\\\: ^1", "[%1:\\n^1:]1")', ['Target\\: ^1', '[%1:\n^1:]1']],
        ['// "Not Me"\n/* "Nor Me" */\n#include "Header.h"', []],
        ['#include "Header.h"\nextern "C" int f();', []],
        ["char c = '\"'; f(\"After Quote\", 1'000)", ['After Quote']],
        ['Diagnose("Left out: " + f("No Test"))', []],
        ['insert(" visible=\\"false\\" "); find("<faceting a"); f("&quot; b")', []],
        ['f("TitleText"); replace("^1", x)', []],
        ['f(", ") + g("x") + "the table has no rows"', []],
    ];
    for (const [source, texts] of cases) assert.deepEqual(wantedTexts(source).map(found => found.text), texts, source);
    assert.deepEqual(wantedTexts('f("ModelStats", "A text")', {isReader: true}).map(found => found.text), ['A text']);
    assert.deepEqual(wantedTexts('f("A text", LookUp("B text"))', {isNet: false}).map(found => found.text), ['B text']);
    assert.equal(wantedTexts('\n\n  f("On Line Three")')[0].line, 3);
});

test('faults of translations are found', () => {
    const cases = [
        ['Mean', 'Mittelwert', 0], ['Mean', '', 1], ['Mean', 'Mean ', 1], ['Mean', 'Mean ...', 1], ['Mean', '^1', 1],
        ['^1 by ^2', '^2: ^1', 0], ['^1 by ^2', '^1', 1], ['^1 by ^2', '^1 by ^2 and ^3', 1],
        ['kGLMM_C22', 'No fit: ^1', 0], ['kGLMM_C22', 'No fit', 0], ['kGLMM_C22', '^1 ^2', 1],
        ['kGLMM_C8', 'kGLMM_C8', 1], ['E60868', 'E60868', 1], ['Target\\: ^1', 'Target\\: ^1', 1],
        ['EffectVar1', '%1 = %2', 1], ['EffectVar1', '[%1=%2:, ^1=^2:]1', 0],
        ['[:^1:]1', '[:^1:]1', 0], ['[:^1:]1', '[: ^1:]1', 1], ['Mean', 'Mean[:^1:]1', 1],
    ];
    for (const [id, text, count] of cases) assert.equal(faultsOf({id, text}).length, count, `${id} -> ${text}`);
});
