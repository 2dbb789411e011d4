// The Khronos glTF validator on a file's bytes, in a worker thread of its own, so that it runs
// beside the browser's reading of the same file: with tens of thousands of animation channels it
// takes tens of seconds, comparing every channel's target with every later one's.
import path from 'node:path';
import { createRequire } from 'node:module';
import { Worker, isMainThread, parentPort, workerData } from 'node:worker_threads';

if (!isMainThread) {
  const require = createRequire(path.join(workerData.pageDir, 'package.json'));
  const validator = require('gltf-validator');
  const started = Date.now();
  const report = await validator.validateBytes(workerData.bytes, { uri: workerData.name, format: workerData.format, maxIssues: 0 });
  const { numErrors, numWarnings, numInfos, numHints, messages } = report.issues;
  parentPort.postMessage({
    numErrors, numWarnings, numInfos, numHints, ms: Date.now() - started,
    // Errors and warnings, the first few: what a failing test shows.
    problems: messages.filter((m) => m.severity <= 1).slice(0, 10).map((m) => `${m.code} ${m.pointer}: ${m.message}`),
  });
}

// The validator's counts and first problems for the file `name` (its ending names the format).
export function validate(bytes, name) {
  return new Promise((resolve, reject) => {
    const worker = new Worker(new URL(import.meta.url), {
      workerData: { bytes: new Uint8Array(bytes), name, format: path.extname(name).slice(1), pageDir: process.env.ORBISETT_PAGE_DIR },
    });
    worker.once('message', resolve);
    worker.once('error', reject);
  });
}
