// Writes the two documents of a model with many estimated means that nobody fitted: node means.mjs FOLDER [BLOCKS]
//
// Each block has a field of 50 levels of its own, crossed with one of two levels, and so three tables of 50 rows: means,
// contrasts of the two levels at each level of the block's field, and a test of each contrast.

import { categorical, coefficient, diagnostics, effect, lines, residual, segment, settings, stringMap, write } from "./parts.mjs";

const [folder, blocksText = "500"] = process.argv.slice(2);
const blocks = Number(blocksText);
const rows = 50;

const values = (make) => Array.from({ length: rows }, (_, i) => make(i)).join(" ");
const levels = (field, make) =>
  `<Coordinates feature="fields" field="${field}"><Array n="${rows}" type="string">${values(make)}</Array></Coordinates>`;
const figures = (statistic, make) =>
  `<Coordinates feature="statistic" statistic="${statistic}"><Array n="${rows}" type="real">${values(make)}</Array></Coordinates>`;

const specification = (block) => `<StructuredValue>
<Attribute name="Factors">${effect(`site${block}`, "treatment")}</Attribute><Attribute name="EstimateMeans" value="true"/>
<Attribute name="CompareFactor" value="treatment"/><Attribute name="ContrastType" value="Pairwise"/>
<Attribute name="ReferenceType" value="Last"/><Attribute name="ReferenceValue" value=""/></StructuredValue>`;

const means = (site) => `<MultivariateData description="estimates">
<CoordinatesGroup>${levels(site, (i) => i)}${levels("treatment", (i) => i % 2)}</CoordinatesGroup>
${figures("mean", (i) => 50 + i / 7)}${figures("stdErr", (i) => 2 + i / 97)}
${figures("confIntervalLower", (i) => 46 + i / 7)}${figures("confIntervalUpper", (i) => 54 + i / 7)}</MultivariateData>`;

const contrasts = (site) => `<MultivariateData description="contrasts">
<Statistic name="adjustedSigLevel" value="0.05"/>
<CoordinatesGroup description="pairwiseContrast">
${levels(site, (i) => i)}${levels("treatment", () => 0)}${levels("treatment", () => 1)}</CoordinatesGroup>
${figures("contrastEstimate", (i) => (i - 25) / 7)}${figures("stdErr", (i) => 2 + i / 97)}
${figures("tTest", (i) => (i - 25) / 17)}${figures("df", () => 45)}${figures("adjustedSig", (i) => (i + 1) / 53)}
${figures("confIntervalLower", (i) => (i - 53) / 7)}${figures("confIntervalUpper", (i) => (i + 3) / 7)}</MultivariateData>`;

const tests = (site) => lines(rows, (i) => `<ModelTestStats testID="${i}">${segment(site, i)}
<FTest fStatistic="${i / 7}" df1="1" df2="45" sig="${(i + 1) / 53}"/></ModelTestStats>`);

const group = (block) => `<DataGroup description="customEmmeans"><Statistic name="EMMEANSIndex" value="${block}"/>
${means(`site${block}`)}
${contrasts(`site${block}`)}
${tests(`site${block}`)}
</DataGroup>`;

const sites = Array.from({ length: blocks }, (_, block) => categorical(`site${block}`, rows));
write(folder, [categorical("treatment", 2), ...sites], `${settings(effect("treatment"), `<Parameter name="EMMEANS"><ListValue>
${lines(blocks, specification)}
</ListValue></Parameter><Parameter name="pAdjustment" value="LSD"/>`)}
<PMMLModel><PredictiveSummary algorithmName="GLMM"/>
${stringMap}
<ModelDiagnostics>${diagnostics}
${lines(blocks, group)}
</ModelDiagnostics><TrainingSummary>
<ParameterEstimates parameterType="fixed">
${lines(2, (i) => coefficient("treatment", i))}
</ParameterEstimates>
${residual}
</TrainingSummary></PMMLModel>`);
