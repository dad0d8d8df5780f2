// Checks view files: each holds to the published schema of Vega-Lite, compiles without a warning, and can be drawn with
// expressions interpreted.
//
//     node views.mjs FOLDER

import assert from 'node:assert/strict';
import {readFileSync, readdirSync} from 'node:fs';
import {createRequire} from 'node:module';
import {dirname, join} from 'node:path';
import {test} from 'node:test';
import {fileURLToPath, pathToFileURL} from 'node:url';

const project = join(dirname(fileURLToPath(import.meta.url)), '../..');
const require = createRequire(join(project, 'web/package.json'));
const load = name => import(pathToFileURL(join(project, 'web/node_modules', name)).href);

const Ajv = require('ajv');
const vegaLite = await load('vega-lite/build/index.js');
const vega = await load('vega/build/vega.module.js');
const {expressionInterpreter} = await load('vega-interpreter/build/vega-interpreter.js');

const schema = JSON.parse(readFileSync(join(project, 'web/node_modules/vega-lite/build/vega-lite-schema.json'), 'utf8'));
const validate = new (Ajv.default ?? Ajv)({strict: false, allErrors: false, validateFormats: false}).compile(schema);

async function draw(view) {
    const heard = [];
    const logger = vega.logger(vega.Warn, null, (method, level, words) => heard.push(words.join(' ')));
    const compiled = vegaLite.compile(view, {logger});
    const runtime = vega.parse(compiled.spec, {}, {ast: true});
    const picture = new vega.View(runtime, {renderer: 'none', expr: expressionInterpreter, logger});
    const svg = await picture.toSVG();
    picture.finalize();
    return {heard, svg};
}

const folder = process.argv[2];
for (const name of readdirSync(folder).filter(each => each.endsWith('.vl.json')).sort()) {
    test(name, async () => {
        const view = JSON.parse(readFileSync(join(folder, name), 'utf8'));
        assert.ok(validate(view), JSON.stringify(validate.errors?.slice(0, 3)));
        const {heard, svg} = await draw(view);
        assert.deepEqual(heard, []);
        assert.doesNotMatch(svg, /NaN|Infinity|undefined/);
    });
}
