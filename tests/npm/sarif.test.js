// The SARIF report of eboconf check, judged by the validator of those who made the format.
// usage: node sarif.test.js EBOCONF FAULTY
'use strict';
const assert = require('node:assert');
const { execFileSync, spawnSync } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const test = require('node:test');

const [eboconf, faulty] = process.argv.slice(2);
const validator = require('@microsoft/sarif-multitool');
// It comes without the right to be run, which its own installation script would give it.
fs.chmodSync(validator, 0o755);

// It wants a region in every finding, which one about a whole file does not have.
const accepted = ['SARIF2017'];

function report(...files) {
  const run = spawnSync(eboconf, ['check', '--format', 'sarif', ...files], { encoding: 'utf8', maxBuffer: 2 ** 28 });
  assert.ok(run.status < 2, run.stderr);
  return run.stdout;
}

// The rules that each report breaks.
function broken(reports) {
  const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'sarif-'));
  try {
    for (const [name, text] of Object.entries(reports)) fs.writeFileSync(path.join(folder, name), text);
    const args = ['validate', ...Object.keys(reports), '--output', 'verdict', '--level', 'Error;Warning'];
    // Without the tables of all languages, which it does not need.
    const env = { ...process.env, DOTNET_SYSTEM_GLOBALIZATION_INVARIANT: '1' };
    execFileSync(validator, args, { cwd: folder, env });
    const [run] = JSON.parse(fs.readFileSync(path.join(folder, 'verdict'), 'utf8')).runs;
    const rules = Object.fromEntries(Object.keys(reports).map((name) => [name, []]));
    for (const { ruleId, locations } of run.results) {
      const name = path.basename(locations[0].physicalLocation.artifactLocation.uri);
      if (!accepted.includes(ruleId)) rules[name].push(ruleId);
    }
    return rules;
  } finally {
    fs.rmSync(folder, { recursive: true });
  }
}

test('reports break no rule, and one that does is refused', () => {
  const files = fs.readdirSync(faulty)
    .flatMap((part) => fs.readdirSync(path.join(faulty, part)).map((file) => path.join(faulty, part, file)));
  assert.ok(files.length > 100);
  const clean = report(path.join(__dirname, '../../tunings/two-mic-speaker.json'));
  const faults = report(...files, 'no such\tfile');
  // The line of the first finding.
  const wrong = faults.replace(/"startLine": \d+/, '"startLine": 0');
  assert.deepStrictEqual(broken({ 'clean.sarif': clean, 'faults.sarif': faults, 'wrong.sarif': wrong }),
    { 'clean.sarif': [], 'faults.sarif': [], 'wrong.sarif': ['JSON1008'] });
});
