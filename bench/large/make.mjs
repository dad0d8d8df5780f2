// Writes the two documents of a large model that nobody fitted: node make.mjs FOLDER [SCALE]
//
// At scale 1 it has 2,000 coefficients, a random block of 400 effects with its whole covariance matrix, and a second block
// of two effects in 200 groups. Coefficients and groups grow with the scale, effects with its root, so that the documents
// grow with the scale as a whole.

import {
  categorical, coefficient, diagnostics, effect, lines, list, named, parameter, residual, segment, settings, stringMap, write,
} from "./parts.mjs";

const [folder, scaleText = "1"] = process.argv.slice(2);
const scale = Number(scaleText);
const coefficients = Math.round(2000 * scale);
const effects = Math.round(400 * Math.sqrt(scale));
const groups = Math.round(200 * scale);

const block = (list, group, type) => `<StructuredValue>
<Attribute name="EffectList"><ListValue>${list}</ListValue></Attribute><Attribute name="Intercept" value="false"/>
<Attribute name="SubjectSpec">${effect("subject")}</Attribute><Attribute name="GroupSpec">${group}</Attribute>
<Attribute name="CovarianceType" value="${type}"/><Attribute name="CovarianceTBand" value=""/></StructuredValue>`;
const matrix = (size) => `<Matrix nbRows="${size}" kind="symmetric"><Array>` +
  Array.from({ length: (size * (size + 1)) / 2 }, (_, i) => (i % 97) / 8).join(" ") + "</Array></Matrix>";
const labels = (size) => `<MatrixLabels><RowColLabels>` +
  lines(size, (i) => `<Label><PrintableList pattern="e${i}"/></Label>`) + `</RowColLabels></MatrixLabels>`;

const randomSpecs = `<Parameter name="RandomSpecs"><ListValue>
${block(lines(effects, () => effect("level")), "<ListValue/>", "UNSTRUCTURED")}
${block(effect("level") + effect("subject"), list(["group"]), "UNSTRUCTURED")}
</ListValue></Parameter>`;

write(folder, [categorical("subject", 0), categorical("group", groups), categorical("level", coefficients)],
  `${settings(effect("level"), randomSpecs)}
<PMMLModel><PredictiveSummary algorithmName="GLMM"/>
${stringMap}
<ModelDiagnostics>${diagnostics}
<StructuredData description="randomEffectCovariances"><Statistic name="s" value=""/>${labels(effects)}
<SegmentData><SegmentInfo/>${matrix(effects)}</SegmentData></StructuredData>
<StructuredData description="randomEffectCovariances"><Statistic name="s" value=""/>${labels(2)}
${lines(groups, (i) => `<SegmentData>${segment("group", i)}${matrix(2)}</SegmentData>`)}</StructuredData>
</ModelDiagnostics><TrainingSummary>
<ParameterEstimates parameterType="fixed">
${lines(coefficients, (i) => coefficient("level", i))}
</ParameterEstimates>
${residual}
<ParameterEstimates parameterType="random" block="0">
${lines(effects, (i) => parameter(i, named("UN (^1,^2)", i + 1, i + 1)))}
</ParameterEstimates>
${lines(groups, (i) => `<ParameterEstimates parameterType="random" block="1">${segment("group", i)}
${lines(3, (j) => parameter(j, named("UN (^1,^2)", [1, 2, 2][j], [1, 1, 2][j])))}</ParameterEstimates>`)}
</TrainingSummary></PMMLModel>`);
