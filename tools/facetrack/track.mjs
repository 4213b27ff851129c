#!/usr/bin/env node
// Finds faces in a PNG photo (or every PNG of a folder) and writes their 68
// landmarks and pupils as the JSON that `qzhost --landmarks` reads. Runs on
// TensorFlow.js's WebAssembly back end, so nothing is compiled on install;
// the detector and landmark models come inside the face-api package.
//
//   node track.mjs PHOTO.png [OUT.json]
//   node track.mjs FOLDER [OUTFOLDER]     one FRAME.landmarks.json per frame
import fs from 'node:fs';
import path from 'node:path';
import { createRequire } from 'node:module';
import { fileURLToPath } from 'node:url';

const require = createRequire(import.meta.url);
const tf = require('@tensorflow/tfjs');
const wasm = require('@tensorflow/tfjs-backend-wasm');
const faceapi = require('@vladmandic/face-api/dist/face-api.node-wasm.js');
const { PNG } = require('pngjs');

const round2 = (v) => Math.round(v * 100) / 100;

function fail(message) {
  console.error(`facetrack: ${message}`);
  process.exit(1);
}

async function start() {
  // Left without wasm paths, the back end reads its binaries from the
  // installed package beside it rather than from a CDN.
  void wasm;
  await tf.setBackend('wasm');
  await tf.ready();
  const models = path.join(path.dirname(require.resolve('@vladmandic/face-api/package.json')), 'model');
  await faceapi.nets.ssdMobilenetv1.loadFromDisk(models);
  await faceapi.nets.faceLandmark68Net.loadFromDisk(models);
}

function readPng(file) {
  let png;
  try {
    png = PNG.sync.read(fs.readFileSync(file));
  } catch (error) {
    fail(`'${file}' is not a readable PNG (${error.message})`);
  }
  // RGBA to an RGB tensor of height x width x 3.
  const rgb = new Int32Array(png.width * png.height * 3);
  for (let i = 0, j = 0; i < png.data.length; i += 4, j += 3) {
    rgb[j] = png.data[i];
    rgb[j + 1] = png.data[i + 1];
    rgb[j + 2] = png.data[i + 2];
  }
  return { width: png.width, height: png.height, tensor: tf.tensor3d(rgb, [png.height, png.width, 3], 'int32') };
}

// The pupil as the mean of the eye's six points: the 68-point model has none.
function eyeCentre(points, first) {
  let x = 0;
  let y = 0;
  for (let i = first; i < first + 6; i += 1) {
    x += points[i][0] / 6;
    y += points[i][1] / 6;
  }
  return [round2(x), round2(y)];
}

async function track(file) {
  const image = readPng(file);
  const options = new faceapi.SsdMobilenetv1Options({ minConfidence: 0.3, maxResults: 4 });
  const results = await faceapi.detectAllFaces(image.tensor, options).withFaceLandmarks();
  tf.dispose(image.tensor);
  const faces = results.map((result) => {
    const box = result.detection.box;
    const points = result.landmarks.positions.map((p) => [round2(p.x), round2(p.y)]);
    return {
      box: { x: round2(box.x), y: round2(box.y), width: round2(box.width), height: round2(box.height) },
      score: Math.round(result.detection.score * 10000) / 10000,
      landmarks68: points,
      pupils: [eyeCentre(points, 36), eyeCentre(points, 42)],
    };
  });
  return {
    image: path.basename(file),
    width: image.width,
    height: image.height,
    coordinates: 'pixels, origin at the top-left corner, y down',
    scheme: '68-point iBUG order (0-16 jaw, 17-26 brows, 27-35 nose, 36-47 eyes, 48-67 mouth)',
    tracker: `face-api ${faceapi.version} (ssd_mobilenetv1, face_landmark_68), tfjs ${tf.version_core} wasm`,
    faces,
  };
}

function write(json, out) {
  fs.writeFileSync(out, `${JSON.stringify(json, null, 1)}\n`);
  console.log(`${out}: ${json.faces.length} face(s)`);
}

async function main() {
  const [input, output] = process.argv.slice(2);
  if (!input || input === '--help' || input === '-h') {
    console.log('usage: node track.mjs PHOTO.png [OUT.json]\n       node track.mjs FOLDER [OUTFOLDER]');
    process.exit(input ? 0 : 2);
  }
  if (!fs.existsSync(input)) fail(`cannot read '${input}'`);
  await start();
  if (fs.statSync(input).isDirectory()) {
    const frames = fs.readdirSync(input).filter((name) => name.toLowerCase().endsWith('.png')).sort();
    if (frames.length === 0) fail(`no PNG frames in '${input}'`);
    const outDir = output || input;
    fs.mkdirSync(outDir, { recursive: true });
    for (const name of frames) {
      const json = await track(path.join(input, name));
      write(json, path.join(outDir, name.replace(/\.png$/i, '.landmarks.json')));
    }
  } else {
    if (!input.toLowerCase().endsWith('.png')) fail(`'${input}' is not a PNG`);
    const json = await track(input);
    write(json, output || input.replace(/\.png$/i, '.landmarks.json'));
  }
}

main().catch((error) => fail(error.stack || String(error)));
