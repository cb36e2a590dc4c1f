// What is installed: these versions and no others, from whatever registry the machine has.
'use strict';
const assert = require('node:assert');
const fs = require('node:fs');
const path = require('node:path');
const test = require('node:test');

const lock = fs.readFileSync(path.join(__dirname, 'package-lock.json'), 'utf8');
const { packages } = JSON.parse(lock);

test('the lock file has no addresses', () => {
  assert.ok(!lock.includes('://'), 'write it with: npm run lock');
});

test('each package has one version and one content', () => {
  for (const [name, entry] of Object.entries(packages)) {
    if (name === '') continue;
    assert.match(entry.version, /^\d+\.\d+\.\d+$/, name);
    assert.match(entry.integrity, /^sha512-/, name);
  }
  const { dependencies = {}, devDependencies } = require('./package.json');
  for (const version of Object.values({ ...dependencies, ...devDependencies })) {
    assert.match(version, /^\d+\.\d+\.\d+$/);
  }
});
