// Reads message catalogues in their source form.

/** The entries of a catalogue: {id, text, line, isFuzzy}, the first of which (id "") describes it. */
export function readCatalogue(source) {
    const entries = [];
    let entry = null;
    let field = null;
    let isFuzzy = false;
    for (const [index, line] of source.split('\n').entries()) {
        if (line.startsWith('#,') && line.includes('fuzzy')) isFuzzy = true;
        const match = /^(?:(msgid|msgstr) )?(".*")$/.exec(line);
        if (!match) continue;
        if (match[1] === 'msgid') {
            entry = {id: '', text: '', line: index + 1, isFuzzy};
            entries.push(entry);
            isFuzzy = false;
        }
        if (match[1]) field = match[1] === 'msgid' ? 'id' : 'text';
        entry[field] += JSON.parse(match[2]);  // the escapes that catalogues use are JSON's too
    }
    return entries;
}

/** The list patterns of a text, such as "[%1:\n^1:]1". */
export function listsOf(text) {
    return text.match(/\[[^\[\]:]*:[^\[\]:]*:\]\d/g) ?? [];
}

/** The marks of a text outside its list patterns, each once, in order of their numbers. */
export function marksOf(text) {
    const outside = listsOf(text).reduce((rest, list) => rest.replace(list, ''), text);
    return [...new Set(outside.match(/\^\d/g) ?? [])].sort();
}
