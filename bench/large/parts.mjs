// What the generated documents are put together from.

import { mkdirSync, writeFileSync } from "node:fs";
import { join } from "node:path";

export const lines = (count, make) => Array.from({ length: count }, (_, i) => make(i)).join("\n");
export const list = (values) => `<ListValue>${values.map((value) => `<Value value="${value}"/>`).join("")}</ListValue>`;

/** A crossed effect as it stands in the build settings. */
export const effect = (...fields) => `<StructuredValue><Attribute name="Fields">${list(fields)}</Attribute>` +
  `<Attribute name="NestingLevels">${list(fields.map(() => 0))}</Attribute></StructuredValue>`;

export const categorical = (name, levels) =>
  `<DataField name="${name}" optype="categorical" dataType="integer">` +
  `${lines(levels, (i) => `<Value value="${i}"/>`)}</DataField>`;

export const segment = (field, value) =>
  `<SegmentInfo><FieldInfo fieldName="${field}" fieldValue="${value}"/></SegmentInfo>`;

export const stringMap = `<StringMap mapId="1"><MapEntry name="P"><Label>` +
  `<RegressionParameter isIntercept="true" name="I"/></Label></MapEntry></StringMap>`;

/** The diagnostics that no model lacks. */
export const diagnostics = `<Statistic name="AICC" value="1"/>
<ModelTestStats description="correctedModel" testID="" testType=""><FTest fStatistic="2" df1="3" df2="4" sig="0.2"/></ModelTestStats>
<ModelTestStats description="fixedEffect" testID="0" testType="III"><FTest fStatistic="2" df1="3" df2="4" sig="0.2"/></ModelTestStats>`;

const figures = `stdError="1.25" df="100" confIntervalLower="-1.5" confIntervalUpper="3.5" tTest="0.8" zTest="0.8" sig="0.42" ` +
  `chiSquare="" expEstimate="" expCILower="" expCIUpper="" isRedundant="false"`;
export const parameter = (i, inside) =>
  `<ParameterStats paramName="P${i}" paramLabel="[level=${i}]" estimate="${i / 7}" ${figures}>${inside}</ParameterStats>`;
export const named = (pattern, ...values) =>
  `<PrintableList pattern="${pattern}">${values.map((value) => `<PrintableList pattern="${value}"/>`).join("")}</PrintableList>`;
export const coefficient = (field, value) => parameter(value,
  `<RegressionParameter isIntercept="false" name="${field}"><Factor field="${field}" value="${value}"/></RegressionParameter>`);
export const residual =
  `<ParameterEstimates parameterType="repeated">${parameter(0, named("Variance "))}</ParameterEstimates>`;

export const settings = (fixedEffect, further) => `<BuildSettings>
<Parameter name="TargetField" value="y"/><Parameter name="UseTrials" value="false"/>
<Parameter name="DistributionOfTarget" value="NORMAL"/><Parameter name="LinkFunctionType" value="IDENTITY"/>
<Parameter name="Intercept" value="true"/><Parameter name="ResidualCovarianceType" value="ID"/>
<Parameter name="CIn" value="0.95"/><Parameter name="FixedEffectList"><ListValue>${fixedEffect}</ListValue></Parameter>
${further}</BuildSettings>`;

export function write(folder, fields, statXml) {
  mkdirSync(folder, { recursive: true });
  writeFileSync(join(folder, "model.pmml"), `<PMML version="4.4"><DataDictionary>
<DataField name="y" optype="continuous" dataType="double"/>
${fields.join("\n")}
</DataDictionary></PMML>`);
  writeFileSync(join(folder, "model.statxml"), `<StatXML>${statXml}</StatXML>`);
}
