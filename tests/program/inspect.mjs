// The commands that look at a model and write no report: node inspect.mjs PROGRAM EXAMPLES WORK

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { enter, faults, finish } from "../support/program.mjs";

const [program, examples, work] = process.argv.slice(2);
const { run, spawn } = enter(work, program);
mkdirSync("d");
function expect(name, got, status, out, err = "") {
  const is = (text, expected) => (expected instanceof RegExp ? expected.test(text) : text === expected);
  if (got.status === status && is(got.out, out) && is(got.err, err)) return;
  faults.push(`${name}: status ${got.status}, output\n${got.out.slice(0, 2000)}standard error\n${got.err.slice(0, 2000)}`);
}

// ---- check: [name, example, change of the StatXML document, remarks]

const without = (pattern) => (text) => text.replace(pattern, "");
const noStatistic = (name) => without(new RegExp(`<Statistic name="${name}" [^>]*>`));
const lacks = (item, reason) => `${item} is missing: ${reason}`;
const figure = (label, table, statistic) =>
  lacks(`"${label}" in table "${table}"`, `ModelDiagnostics has no value of Statistic "${statistic}"`);
const significant = lacks('chart "Estimated Marginal Means for Top Significant Fixed Effects"',
  'a categorical effect is significant, but ModelDiagnostics has no DataGroup "Emmeans"');
const classified = lacks('table "Classification"', 'the first Matrix of ModelDiagnostics is no "classificationTable"');
const noTests = ['chart of contrasts of request 1 for means', 'table "Overall Test Results" of request 1 for means']
  .map((item) => lacks(item, "its DataGroup has no ModelTestStats"));

const remarks = [
  ["all of it", "oats", (text) => text, []],
  ["no random part", "ergostool", (text) => text, []],
  ["no classification", "wine", without(/<Matrix description[^]*?<\/Matrix>/), [classified]],
  ["another matrix", "cbpp", (text) => text.replace("classificationTable", "confusion"), [classified]],
  ["no records", "cbpp", without(/<StructuredData description="first[^]*?<\/StructuredData>/),
    [lacks('table "Data Structure"',
      'ModelDiagnostics has no StructuredData "firstSubjectRecordsForDataStructure" with a FieldInfo')]],
  ["no records of crossed blocks", "cbpp",
    (text) => without(/<StructuredData description="first[^]*?<\/StructuredData>/)(text)
      .replace(/(name="numOfCommonSubjects" value=)"\d+"/, '$1"1"'), []],
  ["no plots", "sleepstudy", without(/<UnivariateData[^]*<\/BivariateData>/),
    [lacks('chart "Predicted by Observed"', 'ModelDiagnostics has no BivariateData "observedByPredicted"'),
      lacks('the target\'s histogram in the charts "Fixed Effects" and "Fixed Coefficients"',
        'ModelDiagnostics has no UnivariateData "TargetDistribution" with values')]],
  ["no tests", "sleepstudy", without(/<ModelTestStats[^]*<\/ModelTestStats>/),
    ['table "Fixed Effects" is left out: there are no tests']],
  ["tests without figures", "sleepstudy", (text) => text.replace(/(<FTest .*) sig="[^"]*"/g, "$1"),
    [lacks('chart "Fixed Effects"', 'no ModelTestStats "fixedEffect" has a testID below 10 and a sig from 0 to below 1')]],
  ["no coefficients", "sleepstudy", without(/<ParameterEstimates parameterType="fixed"[^]*?<\/ParameterEstimates>/),
    [lacks('table "Fixed Coefficients"', 'TrainingSummary has no ParameterEstimates "fixed"')]],
  ["no residual", "sleepstudy", without(/<ParameterEstimates parameterType="repeated"[^]*?<\/ParameterEstimates>/),
    ['table "Residual Effect" is left out: there are 0 sets of residual parameters, not one']],
  ["no random parameters", "oats", without(/<ParameterEstimates parameterType="random"[^]*?<\/ParameterEstimates>/g),
    [lacks('table "Random Effect"', 'TrainingSummary has fewer ParameterEstimates "random" than random effect blocks')]],
  ["one matrix of two", "oats", without(/<StructuredData description="random[^]*?<\/StructuredData>/),
    [lacks('table "Random Effect Covariances"',
      'ModelDiagnostics has fewer StructuredData "randomEffectCovariances" than random effect blocks')]],
  ["no figures", "bacteria",
    (text) => ["BIC", "minus2LogLikelihood", "classificationAccuracy", "numOfColsOfFixed", "numOfCommonSubjects",
      "grandMeanCIUpper"].reduce((rest, name) => noStatistic(name)(rest), text),
    [figure("Bayesian", "Model Summary", "BIC"),
      figure("-2 log likelihood", "Model Summary", "minus2LogLikelihood"),
      figure("Fixed Effects", "Covariance Parameters Summary", "numOfColsOfFixed"),
      figure("Common Subjects", "Covariance Parameters Summary", "numOfCommonSubjects"),
      figure("Upper", "Grand Mean", "grandMeanCIUpper"),
      figure("Overall percent correct", "Classification", "classificationAccuracy")]],
  ["no likelihood", "bacteria",
    (text) => text.replace(/(name="(?:minus2LogLikelihood|AICC|BIC)" value=)"[^"]*"/g, '$1""'),
    ['-2 log likelihood and information criteria in table "Model Summary" are missing: ModelDiagnostics has no value ' +
      'of Statistic "minus2LogLikelihood", "AICC" and "BIC"; that is right for a fit by quasi-likelihood or GEE, which ' +
      "has none"]],
  ["no means", "cbpp", without(/<DataGroup[^]*<\/DataGroup>/),
    ["request 1 for means is left out: no block of means answers it", significant]],
  ["no contrasts", "cbpp", without(/<MultivariateData description="contrasts"[^]*?<\/MultivariateData>/),
    ['table "Contrasts" of request 1 for means is left out: the block has no contrasts']],
  ["no overall test", "cbpp", without(/<ModelTestStats testID[^]*?<\/ModelTestStats>/), noTests],
  ["a refused block", "cbpp",
    (text) => text.replace("</DataGroup>\n    </Mod", '<Message><PrintableList pattern="kGLMM_C25"/></Message>$&'),
    [lacks("all of request 1 for means", "EMMEANS 1: These estimated means could not be computed.")]],
  ["a refused chart", "cbpp",
    (text) => text.replace("</DataGroup>\n    </Mod", '<Message><PrintableList pattern="kGLMM_C20"/></Message>$&'),
    ["d/model.statxml:XX: Estimated Marginal Means 1: Period: The chart of these estimated means cannot be drawn.",
      lacks('chart "Estimated Means: Custom Effects" of request 1 for means', "its DataGroup has the message kGLMM_C20")]],
  ["figures that contradict each other", "cbpp",
    (text) => text.replace('name="numOfCommonSubjects" value="15"', 'name="numOfCommonSubjects" value="15.5"')
      .replace('sig="0.00010868950196765348"', 'sig="0.5"'),
    ['d/model.statxml:XX: StatXML/PMMLModel/ModelDiagnostics/ModelTestStats[1]/FTest "correctedModel": ' +
        "sig 0.5 contradicts fStatistic 8.496147941412827 with df1 3 and df2 52, which gives 0.000109",
      'd/model.statxml:XX: StatXML/PMMLModel/ModelDiagnostics/Statistic[9] "numOfCommonSubjects": ' +
        "value 15.5 is a count that is not whole"]],
  ["a message about the fit", "orchard", (text) => text, []],
  ["a text with a line feed", "cbpp", (text) => text.replace('CompareFactor" value="period"', 'CompareFactor" value="a&#10;b\u202e"'),
    [/^table "Contrasts" of request 1 for means is left out: .* compare factor "a b\\u\{202E\}"$/]],
];

for (const [name, example, change, expected] of remarks) {
  const text = readFileSync(join(examples, example, "model.statxml"), "utf8");
  const changed = change(text);
  if (changed === text && expected.length > 0) faults.push(`${name}: nothing was changed`);
  writeFileSync("d/model.pmml", readFileSync(join(examples, example, "model.pmml")));
  writeFileSync("d/model.statxml", changed);
  const got = run("check", "--strict", "d");
  const lines = got.out.replace(/:\d+:\d+: /g, ":XX: ").split("\n").slice(0, -1);
  const fits = lines.length === expected.length &&
    lines.every((line, i) => (expected[i] instanceof RegExp ? expected[i].test(line) : line === expected[i]));
  const isWell = fits && got.err === "" && got.status === (expected.length > 0 ? 2 : 0);
  if (!isWell) faults.push(`check, ${name}: status ${got.status}\n${got.out}${got.err}expected\n${expected.join("\n")}`);
  expect(`check, ${name}, not strict`, run("check", join("d", "model.pmml"), "d/model.statxml"), 0, got.out);
}

writeFileSync("d/model.statxml", "<StatXML/>");
expect("check, unreadable", run("check", "d"), 2, "",
  'hierfit: error: The StatXML document of the model could not be read.\n' +
  'd/model.statxml:1:1: StatXML: element "PMMLModel/PredictiveSummary" expected\n');
expect("list, unreadable", run("list", "d"), 2, "", /^hierfit: error: [^\n]*\nd\/model.statxml:1:1: [^\n]*\n$/);

// ---- list

const oats = join(examples, "oats");
const text = run("list", oats);
expect("list", text, 0, /^ModelSummary-1 {2}table {2}Model Summary\nDataStructure-1 {2}table {2}Data Structure\n/);
expect("list, indented", text, 0, /\nCovariance-Parameters-1 {2}heading {2}Covariance Parameters\n {2}CovarianceParametersSummary-1 {2}table /);
const json = run("list", "-f", "json", oats);
const entries = JSON.parse(json.out);
const page = run("report", "-f", "html", oats).out;
const names = new Set(entries.map(({ name }) => name));
if (names.size !== text.out.split("\n").length - 1) faults.push("list: text and JSON list other items, or names are not unique");
for (const { name, kind, title, heading, ...rest } of entries) {
  const isKnown = ["heading", "table", "chart", "message"].includes(kind) && title !== "" && Object.keys(rest).length === 0;
  if (!isKnown || !page.includes(`id="${name}"`)) faults.push(`list: ${name}, ${kind}, ${title} is not in the page`);
  if (heading !== null && !names.has(heading)) faults.push(`list: ${name} stands under ${heading}, which is not listed`);
}
const { heading } = entries.find(({ name }) => name === "RandomEffects-2");
if (heading !== "Random-Effect-Covariances-1") faults.push(`list: RandomEffects-2 stands under ${heading}`);
const last = entries.findIndex(({ name }) => name === "GrandMeans-1");
if (entries[last].heading !== null) faults.push(`list: GrandMeans-1 stands under ${entries[last].heading}`);

writeFileSync("oats.json", run("report", "-f", "json", oats).out);
expect("list of a saved document", run("list", "oats.json"), 0, text.out);
expect("list of a pair", run("list", "--format", "json", join(oats, "model.pmml"), join(oats, "model.statxml")), 0, json.out);
writeFileSync("bad.json", "{}");
expect("list of another file", run("list", "bad.json"), 2, "", /^hierfit: bad.json: [^\n]+\n$/);

for (const command of ["check", "list"]) {
  const got = spawn("bash", ["-c", `exec 3>&1; "$0" ${command} "$1" >/dev/full; echo $? >&3`,
    program, join(examples, "many-means")]);
  expect(`${command}, a full device`, got, 0, "3\n",
    "hierfit: standard output: No space left on device\n");
}

finish();
