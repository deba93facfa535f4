// Tests plan.html in Chromium. The truth about real reports comes from the mission files' bytes: each flight gets a
// number of its own in bytes that the massage carries through.
const assert = require("node:assert/strict");
const { spawnSync } = require("node:child_process");
const fs = require("node:fs");
const path = require("node:path");
const test = require("node:test");
const { pathToFileURL } = require("node:url");
const axe = require("axe-core");
const { chromium } = require("playwright-core");

const { CONSOLE, MAKE_SAMPLE, WORK } = process.env;
const Repository = path.join(__dirname, "..", "..");
const Massages = Number(process.env.MASSAGES ?? 80);
const Types = ["Bomb", "Recon", "Attack", "Spotting", "CAP", "Barrage Patrol", "Balloon Bust", "Escort", "Balloon Defense",
  "Infantry Defense", "Attack Support", "Barrage Support", "Offensive Patrol", "Lone Wolf"];
const Sample = path.join(WORK, "sample"), Url = pathToFileURL(path.join(Repository, "page", "plan.html")).href;

// ---- Mission files

function readMission(bytes) {
  const flights = [], long = (at) => bytes.readInt32LE(at), longs = (at) => Array.from({ length: 12 }, (_, k) => long(at + 4 * k));
  for (let at = 17, n = long(13); n > 0; n--) {
    const flight = { id: long(at), squadron: long(at + 4), type: Types[long(at + 20)], size: long(at + 28) };
    const count = long(at + 192), escorts = long(at + 204) > 0;
    if (escorts && flight.type === "Escort") flight.escorted = long(at + 216);
    at += escorts ? 220 : 216;
    flight.waypoints = Array.from({ length: count }, (_, k) => at + 46 * k).map((w) =>
      ({ action: bytes[w + 41], altitude: 32 * bytes.readUInt16LE(w + 29), lon: long(w + 12), lat: long(w + 16) }));
    at += 46 * count;
    Object.assign(flight, { tagAt: at, tag: long(at), pilots: longs(at + 52).filter((pilot) => pilot !== -1) });
    flights.push(flight);
    at += 148;
  }
  return { player: long(8), flights };
}

function randoms(seed) {
  return () => (seed = (Math.imul(seed, 1664525) + 1013904223) >>> 0) / 2 ** 32;
}

// Massages a day of the sample with odds, date, shift and player's flight that follow from the seed; 0 changes nothing.
function massage(mission, seed) {
  const folder = path.join(WORK, `massage-${mission}-${seed}`), random = randoms(seed);
  fs.rmSync(folder, { recursive: true, force: true });
  fs.cpSync(Sample, folder, { recursive: true });
  const edit = (file, change) => fs.writeFileSync(path.join(folder, file), change(fs.readFileSync(path.join(folder, file))));
  const mis = `campaign/${mission}.mis`, dat = `campaign/${mission}.dat`;
  edit(mis, (bytes) => {
    const { flights } = readMission(bytes), pilotsOf = (squadron) =>
      flights.reduce((sum, flight) => sum + (flight.squadron === squadron ? flight.pilots.length : 0), 0);
    flights.forEach((flight, k) => bytes.writeInt32LE(1000 + k, flight.tagAt));
    const players = flights.filter((flight) => pilotsOf(flight.squadron) <= 13);  // as many as the tool takes
    if (seed) bytes.writeInt32LE(players[Math.floor(random() * players.length)].id, 8);
    return bytes;
  });
  const before = readMission(fs.readFileSync(path.join(folder, mis)));
  if (seed) {
    edit(dat, (bytes) => {
      bytes.writeInt32LE(2420496 + Math.floor(random() * 1400), 3200);
      bytes.writeInt16LE(Math.floor(random() * 5), 3460);
      return bytes;
    });
    const spread = random() * 1.3;
    edit("velmoran/Velmoran.ini", (text) => `${text}`.replace(/\d\.\d\d/g, () => (random() * spread).toFixed(2)));
  }
  const lines = ["open", `../${mis}`, "report", "before.txt", "massage", "report", "after.txt", "write", "exit", ""];
  const run = spawnSync(CONSOLE, { cwd: path.join(folder, "velmoran"), input: lines.join("\n"), encoding: "latin1" });
  assert.equal(run.status, 0, `seed ${seed}: ${run.stdout}`);
  const report = (name) => ({ name, mimeType: "text/plain", buffer: fs.readFileSync(path.join(folder, "velmoran", name)) });
  const result = { before, after: readMission(fs.readFileSync(path.join(folder, mis))),
    reports: [report("before.txt"), report("after.txt")] };
  fs.rmSync(folder, { recursive: true });
  return result;
}

// What the page must say of a massage.
function truthOf({ before, after }) {
  const links = ({ flights }) => {
    const of = new Map(flights.map(({ tag }) => [tag, []]));
    for (const { tag, escorted } of flights) {
      if (escorted === undefined) continue;
      const target = flights.find(({ id }) => id === escorted)?.tag;
      of.get(tag).push(`for ${target}`);
      of.get(target)?.push(`by ${tag}`);
    }
    return of;
  };
  const escortsBefore = links(before), escortsAfter = links(after);
  const side = (squadron) => squadron > 80, players = before.flights.find(({ id }) => id === before.player);
  return before.flights.map((was) => {
    const is = after.flights.find(({ tag }) => tag === was.tag);
    const differs = (...names) => was.waypoints.some((w, k) => names.some((name) => w[name] !== is.waypoints[k][name]));
    const changes = !is ? ["removed"] : Object.entries({
      altitude: differs("altitude"), escort: `${escortsBefore.get(was.tag)}` !== `${escortsAfter.get(was.tag)}`,
      route: differs("lon", "lat"), size: was.size !== is.size, type: was.type !== is.type,
    }).filter(([, changed]) => changed).map(([kind]) => kind);
    const arrow = (from, to) => (to === undefined || from === to ? `${from}` : `${from} → ${to}`);
    return { before: `${was.id}`, after: is && `${is.id}`, changes, mySide: side(was.squadron) === side(players.squadron),
      you: was === players, type: arrow(was.type, is?.type), size: arrow(was.size, is?.size) };
  });
}

function totalsOf({ flights }) {
  const totals = { flights: flights.length, planes: 0, pilots: 0 };
  for (const { size, pilots, type } of flights) {
    totals.planes += size;
    totals.pilots += pilots.length;
    totals[type] = (totals[type] ?? 0) + 1;
  }
  return totals;
}

// ---- Made-up reports

const place = (lon, lat = 0) => ({ lon, lat });
// A flight of the report; route is a list of places.
function flight(squadron, route, { type = "CAP", pilots = [1], plane = "Scout" } = {}) {
  return { squadron, route, type, pilots, plane };
}
function report(name, flights, { player = 0, squadrons = [["Alpha", 1]] } = {}) {
  const blocks = flights.map(({ squadron, route, type, pilots, plane }, id) => [
    `Mission:        ${id} `, `Squadron:      ${squadron}`, `Mission:       ${type}`, "Num Planes:     1 ", " ",
    `    Plane: ${plane}`, " ", ...pilots.map((pilot) => `    Pilot:  ${pilot} `),
    ...route.flatMap(({ lon, lat }, k) => [`    Altitude at Waypoint  ${k + 1} :  320 `, `    Lon at Waypoint  ${k + 1} :  ${lon} `,
      `    Lat at Waypoint  ${k + 1} :  ${lat} `, `    Action at Waypoint     ${k + 1} :  4         Patrol`,
      `    Formation at Waypoint  ${k + 1} :  9         In Trail`])]);
  const lines = [`Player Flight ID :        ${player} `, `Mission Count    :        ${flights.length} `, " ", ...blocks.flat(),
    " ", " ", " ", " ", " ", ...squadrons.map(([squadron, nation], id) =>
      `Squadron: ${squadron}   ID    : ${id}   Nation: ${nation}   Planes: 1`), " ", " ", ""];
  return { name, mimeType: "text/plain", buffer: Buffer.from(lines.join("\r\n"), "latin1") };
}
const text = (name, content) => ({ name, mimeType: "text/plain", buffer: Buffer.from(content, "latin1") });

// ---- The page

let browser, page, requests, faults;

async function openPage(options = {}) {
  await page?.close();
  page = await browser.newPage({ viewport: { width: 1372, height: 869 }, ...options });
  requests = [];
  faults = [];
  page.on("request", (request) => requests.push(request.url()));
  page.on("console", (message) => faults.push(message.text()));
  page.on("pageerror", (error) => faults.push(error.message));
  await page.goto(Url);
}

// Gives the page the files; returns what it says.
async function give(...files) {
  const updates = await page.evaluate(() => Number(document.body.dataset.updates));
  await page.setInputFiles("#files", files);
  await page.waitForFunction((last) => Number(document.body.dataset.updates) === last + 1, updates);
  return read();
}

const read = () => page.evaluate(() => ({
  message: document.querySelector("#message").textContent,
  totals: [...document.querySelectorAll("#totals [data-what]")].map((entry) => ({ ...entry.dataset })),
  rows: [...document.querySelectorAll("#flights tbody tr")].map((row) => ({ ...row.dataset, hidden: row.hidden,
    text: row.innerText, squadron: row.cells[1].textContent, type: row.cells[3].textContent, size: row.cells[4].textContent })),
}));

// The numbers before of the rows that each kind of change leaves, of both sides.
const filterByKind = () => page.evaluate(() => {
  const set = (id, name, value) => {
    document.getElementById(id)[name] = value;
    document.getElementById(id).dispatchEvent(new Event("input"));
  };
  const side = document.getElementById("my-side").checked;
  set("my-side", "checked", false);
  const found = {};
  for (const { value } of [...document.getElementById("change").options].filter((option) => option.value)) {
    set("change", "value", value);
    found[value] = [...document.querySelectorAll("#flights tbody tr:not([hidden])")].map((row) => row.dataset.before);
  }
  set("change", "value", "");
  set("my-side", "checked", side);
  return found;
});

const pairs = ({ rows }) => rows.map(({ before, after, certain }) => [before, after, certain].join(" "));

test.before(async () => {
  const made = spawnSync(MAKE_SAMPLE, [path.join(Repository, "sample"), Sample]);
  assert.equal(made.status, 0, `${made.stderr}`);
  browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox", "--disable-gpu",
    "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync"] });
  await openPage();
});
test.after(async () => {
  await browser?.close();
});
// Whatever a test did, nothing but the page was asked for and nothing was logged or thrown.
test.afterEach(() => {
  assert.deepEqual(requests, [Url]);
  assert.deepEqual(faults, []);
});

test("what the page says of a massage is what the mission files say", async (t) => {
  let flights = 0, uncertain = 0, wrong = 0;
  for (let seed = 0; seed < Massages; seed++) {
    const made = massage(seed % 4 ? "campgn01" : "campgn02", seed), truth = truthOf(made);
    const same = made.before.flights.length === made.after.flights.length;
    const said = await give(...(seed % 2 ? made.reports : [...made.reports].reverse()));
    assert.equal(said.message, "", `seed ${seed}`);

    const was = totalsOf(made.before), is = totalsOf(made.after);
    assert.deepEqual(Object.fromEntries(said.totals.map(({ what, before, after }) => [what, `${before} ${after}`])),
      Object.fromEntries(Object.keys({ ...was, ...is }).map((what) => [what, `${was[what] ?? 0} ${is[what] ?? 0}`])),
      `seed ${seed}${same ? ", no flight removed" : ""}`);

    flights += truth.length;
    said.rows.forEach((row, k) => {
      assert.equal(row.before, truth[k].before);
      if (row.certain === "no") uncertain++;
      else if (row.after !== truth[k].after) wrong++;
    });
    if (said.rows.some((row, k) => row.after !== truth[k].after)) continue;
    said.rows.forEach((row, k) => {
      const { mySide, you, type, size } = truth[k];
      assert.deepEqual([!row.hidden, row.squadron.includes("(you"), row.type, row.size], [mySide, you, type, size]);
    });
    const kinds = await filterByKind();
    for (const kind of ["altitude", "escort", "route", "size", "type", "removed"]) {
      const expected = truth.filter(({ changes }) => changes.includes(kind)).map(({ before }) => before);
      assert.deepEqual(kinds[kind] ?? [], expected, `seed ${seed}, ${kind}`);
    }
  }
  t.diagnostic(`${Massages} massages, ${flights} flights, ${uncertain} uncertain, ${wrong} wrong`);
  assert.equal(wrong, 0);
  assert.ok(uncertain <= flights / 100);
});
