// Finds the string literals of C++ sources, and where they stand.

const tokens = new RegExp(
    [
        String.raw`(?<skipped>\/\/[^\n]*|\/\*[\s\S]*?\*\/|^[ \t]*#(?:[^\n\\]|\\[\s\S])*)`,
        String.raw`(?<raw>(?:u8|[uUL])?R"(?<fence>[^()\s]*)\((?<body>[\s\S]*?)\)\k<fence>")`,
        String.raw`(?<text>(?:u8|[uUL])?"(?:[^"\\\n]|\\[\s\S])*")`,
        String.raw`(?<character>(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+')`,
        String.raw`(?<number>\d(?:[\w.']|[eEpP][+-])*)`,
        String.raw`(?<word>[A-Za-z_]\w*)`,
        String.raw`(?<sign>::|\S)`,
    ].join('|'),
    'gm',
);

const escapes = {n: '\n', t: '\t', r: '\r', 0: '\0', '"': '"', "'": "'", '\\': '\\'};

function contentOf(literal) {
    const body = literal.slice(literal.indexOf('"') + 1, -1);
    return body.replace(/\\(x[0-9A-Fa-f]+|u[0-9A-Fa-f]{4}|[\s\S])/g, (_, escape) =>
        escape.length > 1 ? String.fromCodePoint(parseInt(escape.slice(1), 16)) : (escapes[escape] ?? ''));
}

function* tokensOf(source) {
    let line = 1;
    let counted = 0;
    for (const {groups, index, 0: all} of source.matchAll(tokens)) {
        line += source.slice(counted, index).split('\n').length - 1;
        counted = index;
        if (groups.skipped !== undefined || groups.character !== undefined) continue;
        if (groups.raw !== undefined) yield {literal: groups.body, line};
        else if (groups.text !== undefined) yield {literal: contentOf(all), line};
        else yield {code: all, line};
    }
}

/** Literals that stand side by side are one. */
function joined(list) {
    const result = [];
    for (const token of list) {
        const last = result.at(-1);
        if (token.literal !== undefined && last?.literal !== undefined) last.literal += token.literal;
        else result.push(token);
    }
    return result;
}

/** The words directly in front of a bracket: what is called there, or declared. */
function calleeOf(list, at) {
    const words = [];
    for (let i = at - 1; i >= 0 && i >= at - 8; --i) {
        const code = list[i].code ?? '';
        if (/^\w+$/.test(code) && code !== 'return' && code !== 'new') words.push(code);
        else if (!['::', '<', '>', '*', '&'].includes(code)) break;
    }
    return words;
}

/**
 * The literals of a source: {text, line, calls, isFirst, flag}. `calls` holds the words in front of each bracket around
 * the literal, the innermost first; `isFirst` tells that it opens the innermost one; `flag` is the truth value that
 * follows it as the next argument, if one does.
 */
export function literalsOf(source) {
    const list = joined(tokensOf(source));
    const open = [];
    const found = [];
    for (const [i, token] of list.entries()) {
        if (token.code === '(' || token.code === '{') open.push(calleeOf(list, i));
        if (token.code === ')' || token.code === '}') open.pop();
        if (token.literal === undefined || list[i - 1]?.code === 'extern') continue;
        const flag = list[i + 1]?.code === ',' ? {true: true, false: false}[list[i + 2]?.code] : undefined;
        const isFirst = ['(', '{'].includes(list[i - 1]?.code);
        found.push({text: token.literal, line: token.line, calls: open.toReversed(), isFirst, flag});
    }
    return found;
}
