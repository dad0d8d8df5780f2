// Writes the two documents of a large model that nobody fitted: node make.mjs FOLDER [SCALE]
//
// At scale 1 it has 2,000 coefficients, a random block of 400 effects with its whole covariance matrix, and a second block
// of two effects in 200 groups. Coefficients and groups grow with the scale, effects with its root, so that the documents
// grow with the scale as a whole.

import { mkdirSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const [folder, scaleText = "1"] = process.argv.slice(2);
const scale = Number(scaleText);
const coefficients = Math.round(2000 * scale);
const effects = Math.round(400 * Math.sqrt(scale));
const groups = Math.round(200 * scale);

const lines = (count, make) => Array.from({ length: count }, (_, i) => make(i)).join("\n");
const list = (values) => `<ListValue>${values.map((value) => `<Value value="${value}"/>`).join("")}</ListValue>`;
const effect = (field) => `<StructuredValue><Attribute name="Fields">${list([field])}</Attribute>` +
  `<Attribute name="NestingLevels">${list([0])}</Attribute></StructuredValue>`;
const figures = `stdError="1.25" df="100" confIntervalLower="-1.5" confIntervalUpper="3.5" tTest="0.8" zTest="0.8" sig="0.42" ` +
  `chiSquare="" expEstimate="" expCILower="" expCIUpper="" isRedundant="false"`;
const parameter = (i, inside) =>
  `<ParameterStats paramName="P${i}" paramLabel="[level=${i}]" estimate="${i / 7}" ${figures}>${inside}</ParameterStats>`;
const named = (pattern, ...values) =>
  `<PrintableList pattern="${pattern}">${values.map((value) => `<PrintableList pattern="${value}"/>`).join("")}</PrintableList>`;
const block = (list, group, type) => `<StructuredValue>
<Attribute name="EffectList"><ListValue>${list}</ListValue></Attribute><Attribute name="Intercept" value="false"/>
<Attribute name="SubjectSpec">${effect("subject")}</Attribute><Attribute name="GroupSpec">${group}</Attribute>
<Attribute name="CovarianceType" value="${type}"/><Attribute name="CovarianceTBand" value=""/></StructuredValue>`;
const segment = (i) => `<SegmentInfo><FieldInfo fieldName="group" fieldValue="${i}"/></SegmentInfo>`;
const matrix = (size) => `<Matrix nbRows="${size}" kind="symmetric"><Array>` +
  Array.from({ length: (size * (size + 1)) / 2 }, (_, i) => (i % 97) / 8).join(" ") + "</Array></Matrix>";
const labels = (size) => `<MatrixLabels><RowColLabels>` +
  lines(size, (i) => `<Label><PrintableList pattern="e${i}"/></Label>`) + `</RowColLabels></MatrixLabels>`;

const pmml = `<PMML version="4.4"><DataDictionary>
<DataField name="y" optype="continuous" dataType="double"/>
<DataField name="subject" optype="categorical" dataType="integer"/>
<DataField name="group" optype="categorical" dataType="integer">${lines(groups, (i) => `<Value value="${i}"/>`)}</DataField>
<DataField name="level" optype="categorical" dataType="integer">${lines(coefficients, (i) => `<Value value="${i}"/>`)}</DataField>
</DataDictionary></PMML>`;

const statXml = `<StatXML><BuildSettings>
<Parameter name="TargetField" value="y"/><Parameter name="UseTrials" value="false"/>
<Parameter name="DistributionOfTarget" value="NORMAL"/><Parameter name="LinkFunctionType" value="IDENTITY"/>
<Parameter name="Intercept" value="true"/><Parameter name="ResidualCovarianceType" value="ID"/>
<Parameter name="CIn" value="0.95"/><Parameter name="FixedEffectList"><ListValue>${effect("level")}</ListValue></Parameter>
<Parameter name="RandomSpecs"><ListValue>
${block(lines(effects, () => effect("level")), "<ListValue/>", "UNSTRUCTURED")}
${block(effect("level") + effect("subject"), list(["group"]), "UNSTRUCTURED")}
</ListValue></Parameter></BuildSettings>
<PMMLModel><PredictiveSummary algorithmName="GLMM"/>
<StringMap mapId="1"><MapEntry name="P"><Label><RegressionParameter isIntercept="true" name="I"/></Label></MapEntry></StringMap>
<ModelDiagnostics><Statistic name="AICC" value="1"/>
<ModelTestStats description="correctedModel" testID="" testType=""><FTest fStatistic="2" df1="3" df2="4" sig="0.2"/></ModelTestStats>
<ModelTestStats description="fixedEffect" testID="0" testType="III"><FTest fStatistic="2" df1="3" df2="4" sig="0.2"/></ModelTestStats>
<StructuredData description="randomEffectCovariances"><Statistic name="s" value=""/>${labels(effects)}
<SegmentData><SegmentInfo/>${matrix(effects)}</SegmentData></StructuredData>
<StructuredData description="randomEffectCovariances"><Statistic name="s" value=""/>${labels(2)}
${lines(groups, (i) => `<SegmentData>${segment(i)}${matrix(2)}</SegmentData>`)}</StructuredData>
</ModelDiagnostics><TrainingSummary>
<ParameterEstimates parameterType="fixed">
${lines(coefficients, (i) => parameter(i, `<RegressionParameter isIntercept="false" name="level"><Factor field="level" value="${i}"/></RegressionParameter>`))}
</ParameterEstimates>
<ParameterEstimates parameterType="repeated">${parameter(0, named("Variance "))}</ParameterEstimates>
<ParameterEstimates parameterType="random" block="0">
${lines(effects, (i) => parameter(i, named("UN (^1,^2)", i + 1, i + 1)))}
</ParameterEstimates>
${lines(groups, (i) => `<ParameterEstimates parameterType="random" block="1">${segment(i)}
${lines(3, (j) => parameter(j, named("UN (^1,^2)", [1, 2, 2][j], [1, 1, 2][j])))}</ParameterEstimates>`)}
</TrainingSummary></PMMLModel></StatXML>`;

mkdirSync(folder, { recursive: true });
writeFileSync(join(folder, "model.pmml"), pmml);
writeFileSync(join(folder, "model.statxml"), statXml);
