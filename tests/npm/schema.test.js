// The schema as strict validators and editors take it.
'use strict';
const assert = require('node:assert');
const fs = require('node:fs');
const path = require('node:path');
const test = require('node:test');
const Ajv = require('ajv');
const { ClientCapabilities, getLanguageService, TextDocument } = require('vscode-json-languageservice');

const source = path.join(__dirname, '../..');
const read = (file) => fs.readFileSync(path.join(source, file), 'utf8');
const schema = JSON.parse(read('docs/tuning-file.schema.json'));
const example = JSON.parse(read('tunings/two-mic-speaker.json'));

// What the schema says beyond its draft; anything else fails the compilation.
const keywords = ['patternErrorMessage', 'defaultSnippets', 'markdownDescription', 'enumDescriptions'];
const strict = () => new Ajv({ strict: true, keywords }).compile(schema);

test('a strict validator takes the schema, and with it every example', () => {
  const validate = strict();
  for (const file of fs.readdirSync(path.join(source, 'tunings')).filter((name) => name.endsWith('.json'))) {
    assert.ok(validate(JSON.parse(read(`tunings/${file}`))), `${file}: ${JSON.stringify(validate.errors)}`);
  }
  assert.ok(!validate({ ebo_ao_configs: { howl: { status: 'enable' } } }));
});

const service = getLanguageService({ clientCapabilities: ClientCapabilities.LATEST });
service.configure({ validate: true, schemas: [{ uri: 'file:///tuning.schema.json', fileMatch: ['*'], schema }] });

// "|" stands for the cursor.
function opened(text) {
  const offset = text.indexOf('|');
  const document = TextDocument.create('file:///lamp.json', 'json', 1, text.replace('|', ''));
  return [document, document.positionAt(offset), service.parseJSONDocument(document)];
}
const complete = async (text) => (await service.doComplete(...opened(text))).items;
const labels = async (text) => (await complete(text)).map((item) => item.label);
const hover = async (text) => (await service.doHover(...opened(text))).contents.join('\n');
async function complaints(text) {
  const [document, , parsed] = opened(text);
  const found = await service.doValidation(document, parsed);
  return found.map((each) => `${document.getText(each.range)}: ${each.message}`);
}
// The example with one value replaced, as text.
function withValue(section, key, value) {
  const document = structuredClone(example);
  document.ebo_configs[section][key] = value;
  return JSON.stringify(document);
}

test('roots, sections and keys are offered', async () => {
  assert.deepStrictEqual(await labels('{|}'), ['$schema', 'ebo_configs', 'ebo_ao_configs', 'ebo_agc_configs']);
  assert.deepStrictEqual(await labels('{"ebo_configs": {|}}'), Object.keys(schema.properties.ebo_configs.properties));
  assert.deepStrictEqual(await labels('{"ebo_ao_configs": {|}}'), ['anr', 'howl']);
  assert.deepStrictEqual(await labels('{"ebo_configs": {"dtd": {"ksiThd_low": 0.3, |}}}'), ['status', 'ksiThd_high']);
});

// Takes the default of each tab stop, as who presses the key again and again.
const typed = (snippet) =>
  JSON.parse(snippet.replace(/\$\{\d+\|(\w+),[^}]*\}/g, '$1').replace(/\$\{\d+:([^}]*)\}/g, '$1').replace(/\$\d+/g, ''));

test('a section comes with all of its keys, ready to be loaded', async () => {
  const validate = strict();
  const capture = {};
  for (const item of await complete('{"ebo_configs": {|}}')) {
    const section = typed(`{${item.textEdit.newText}}`);
    assert.deepStrictEqual(Object.keys(section[item.label]), Object.keys(schema.definitions[item.label].properties));
    Object.assign(capture, section);
  }
  assert.ok(validate({ ebo_configs: capture }), JSON.stringify(validate.errors));
  assert.deepStrictEqual(Object.keys(capture), Object.keys(example.ebo_configs));
  const [whole] = await complete('{"ebo_ao_configs": {"howl": |}}');
  assert.strictEqual(whole.label, 'howl with all keys');
  assert.deepStrictEqual(typed(whole.textEdit.newText), { status: 'enable', mode: 0 });
});

test('values are offered with what they mean', async () => {
  const offered = async (text) => (await complete(text)).map((item) => `${item.label} ${item.documentation}`);
  const modes = ['1 oneshot only', '2 wakeup + command', '3 (oneshot) and (wakeup + command)'];
  for (const before of ['', '"status": "enable", ', '"status": "disable", ']) {
    assert.deepStrictEqual(await offered(`{"ebo_configs": {"wakeup": {${before}"mode": |}}}`), modes);
  }
  assert.deepStrictEqual(await offered('{"ebo_ao_configs": {"howl": {"status": |}}}'),
    ['"enable" Enables the module', '"disable" Disables it']);
  assert.deepStrictEqual(await labels('{"ebo_configs": {"bf": {"drop_ref_channel": |}}}'), ['0', '1']);
  assert.deepStrictEqual(await labels('{"ebo_configs": {"agc": {"max_gain": |}}}'), ['20']);
});

test('hovering tells meaning, type, default, width, order and message', async () => {
  assert.strictEqual(await hover('{"ebo_configs": {"agc": {"attack|_time": 1}}}'), [
    'Attack time.\n',
    '- Type: number',
    '- Default: `200.0`',
    '- Stored as: `float EboAgcParam::attack_time`',
    '- Looked up: 2 of 16',
    '- When missing: `find agc attack_time failed`'].join('\n'));
  assert.match(await hover('{"ebo_configs": {"aes": {"LimitRatio|_0": ""}}}'), /`float\[3\] EboAesParam::LimitRatio\[0\]`/);
  assert.match(await hover('{"ebo_configs": {"wakeup": {"mode|": 2}}}'), /When missing: the key is optional/);
  assert.match(await hover('{"ebo_configs": {"wakeup": {"mode": |2}}}'), /`2`: wakeup \\\+ command$/);
  const status = await hover('{"ebo_ao_configs": {"howl": {"status|": "enable"}}}');
  assert.match(status, /bit 0x4000 of bf.model_en, in ebo_configs\n- Stored as: bit 0x2 of rx.model_en, in ebo_ao_configs/);
  assert.match(await hover('{"ebo_configs": {"gsc|": {}}}'), /^The gsc stage .*\n\n- ebo_configs: bit 0x80 of bf.model_en/);
});

test('nothing is marked in the examples, nor in notes', async () => {
  for (const file of ['two-mic-speaker', 'six-mic-conference', 'minimal']) {
    assert.deepStrictEqual(await complaints(read(`tunings/${file}.json`)), []);
  }
  assert.deepStrictEqual(await complaints(withValue('agc', '_max_gain', 'was 12 until May')), []);
  assert.deepStrictEqual(await complaints(withValue('agc', '//', ['any', 'thing'])), []);
});

// Each with the one complaint that an editor shows.
const faults = [
  ['agc', 'max_gian', 1, '"max_gian": Property max_gian is not allowed.'],
  ['agc', 'max_gain', '24.0', '"24.0": Incorrect type. Expected "number".'],
  ['agc', 'swSmL0', 40.5, '40.5: Incorrect type. Expected "integer".'],
  ['agc', 'status', 'enabled', '"enabled": Value is not accepted. Valid values: "enable", "disable".'],
  ['aec', 'filter_len', 70000, '70000: Value is above the maximum of 32767.'],
  ['aec', 'mic_chn_map', '4 chn;map:1,0', '"4 chn;map:1,0": Write the number of channels, at most 16, then " chn;map:" ' +
    'and that many integers with commas between them, for example "2 chn;map:1,0".'],
  ['nlp', 'band_pass_thd', '1,2,3', '"1,2,3": Write 8 integers with a comma after each but the last, for example ' +
    '"0,0,0,0,0,0,0,0".'],
  ['aes', 'LimitRatio_0', '1.0,0.85,0.7', '"1.0,0.85,0.7": Write 3 numbers with blanks between them and no commas, for ' +
    'example "0.0  0.0  0.0".'],
  ['aes', 'ThdSplitFreq_0', '500', '"500": Write 2 integers with blanks between them and no commas, for example "0  0".'],
  ['wakeup', 'mode', 4, '4: Value is not accepted. Valid values: 1, 2, 3.'],
];
for (const [section, key, value, expected] of faults) {
  test(`${section}.${key} = ${JSON.stringify(value)} is marked, in words`, async () => {
    assert.deepStrictEqual(await complaints(withValue(section, key, value)), [expected]);
  });
}

test('a missing key is marked at its section', async () => {
  const document = structuredClone(example);
  delete document.ebo_configs.dtd.ksiThd_low;
  assert.deepStrictEqual(await complaints(JSON.stringify(document)), ['"dtd": Missing property "ksiThd_low".']);
});
