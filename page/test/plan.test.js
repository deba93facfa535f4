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

test("flights that can't be told apart are uncertain", async () => {
  const route = [place(1), place(2), place(9), place(3)], moved = [place(1), place(2), place(300009), place(3)];
  const own = flight("Alpha", [place(0)]), other = (options) => flight("Bravo", route, options);
  const cases = {
    "twins, one removed": [[own, other(), other()], [own, other()], ["0 0 yes", "1 1 no", "2  no"]],
    "other pilots": [[own, other(), other({ pilots: [2] })], [own, other({ pilots: [2] })], ["0 0 yes", "1  yes", "2 1 yes"]],
    "a type that no massage gives": [[own, other(), other({ type: "Escort" })], [own, other({ type: "Escort" })],
      ["0 0 yes", "1  yes", "2 1 yes"]],
    "twins that both stay": [[own, other(), other()], [own, other(), other({ type: "Recon" })],
      ["0 0 yes", "1 1 yes", "2 2 yes"]],
    "a moved route": [[own, other()], [own, flight("Bravo", moved)], ["0 0 yes", "1 1 yes"]],
    "own squadron, other pilots": [[own, flight("Alpha", route, { pilots: [5, 6] })],
      [own, flight("Alpha", route, { pilots: [5, 8] })], ["0 0 yes", "1 1 yes"]],
    "no waypoints": [[own, flight("Bravo", []), flight("Delta", [])], [own, flight("Delta", [])],
      ["0 0 yes", "1  yes", "2 1 yes"]],
    "nobody left": [[own], [], ["0  yes"]],
  };
  for (const name in cases) {
    const [before, after, expected] = cases[name];
    const said = await give(report("before.txt", before), report("after.txt", after));
    assert.deepEqual(pairs(said), expected, name);
  }
});

test("which report came first, and swapping", async () => {
  const was = [flight("Alpha", [place(1), place(2), place(3), place(4)]), flight("Bravo", [place(1)])];
  const is = [flight("Alpha", [place(1), place(2), place(300003), place(4)], { type: "Recon" }), was[1]];
  for (const files of [[report("b.txt", was), report("a.txt", is)], [report("a.txt", is), report("b.txt", was)]]) {
    await give(...files);
    assert.match(await page.textContent("#note"), /Before: b.txt. After: a.txt./);
  }
  assert.deepEqual(pairs(await give(report("a.txt", [is[0]]), report("b.txt", was))), ["0 0 yes", "1  yes"]);
  await page.click("#swap");
  const said = await read();
  assert.deepEqual(pairs(said), ["0 0 yes", " 1 yes"]);
  assert.equal(said.rows[1].text.includes("added"), true);
  assert.deepEqual(said.totals[0], { what: "flights", before: "1", after: "2" });
});

test("the player's flight is marked only where it is proven", async () => {
  const squadrons = [["Alpha", 1], ["Bravo", 1]], alpha = flight("Alpha", [place(1)]), bravo = flight("Bravo", [place(2)]);
  const marked = ({ rows }) => rows.filter(({ text }) => text.includes("(you")).map(({ before, after }) => `${before} ${after}`);
  const flights = [alpha, bravo, alpha, bravo];
  const before = report("before.txt", flights, { player: 1, squadrons });
  assert.deepEqual(marked(await give(before)), ["1 undefined"]);
  // Removed: number 1 is another flight's now.
  assert.deepEqual(marked(await give(before, report("after.txt", [alpha, alpha], { player: 1, squadrons }))), ["1 undefined"]);
  // Kept: of two that look alike the number says which.
  const said = await give(before, report("after.txt", [bravo], { player: 0, squadrons }));
  assert.deepEqual(pairs(said), ["0  yes", "1 0 yes", "2  yes", "3  yes"]);
  assert.deepEqual(marked(said), ["1 0"]);
});

test("flights of the other side are hidden, flights without a nation are not", async () => {
  const names = ["Alpha", "Bravo", "Two nations", "Unknown", "Unlisted", "Charlie"];
  const squadrons = [["Alpha", 1], ["Bravo", 0], ["Two nations", 0], ["Two nations", 2], ["Unknown", 0], ["Charlie", 4]];
  const flights = names.map((name, k) => flight(name, [place(k)]));
  const shown = ({ rows }) => rows.filter(({ hidden }) => !hidden).map(({ before }) => names[before]);
  assert.deepEqual(shown(await give(report("r.txt", flights, { squadrons }))), names.filter((name) => name !== "Bravo"));
  await page.selectOption("#nation", "4");
  assert.deepEqual(shown(await read()), ["Two nations", "Unknown", "Unlisted", "Charlie"]);
  await page.selectOption("#nation", "");
  await page.uncheck("#my-side");
  assert.deepEqual(shown(await read()), names);
  await page.check("#my-side");
  assert.deepEqual(shown(await give(report("r.txt", flights, { player: 9, squadrons }))), names);
});

test("names are text, whatever they hold", async () => {
  const names = ["<img src=x onerror=document.title=1>", "</td><script>document.title=1</script>", "&lt;b&gt;, \"q\" 'q'",
    "M\xfcller \x80\x93", "a\0b", "Mission:        3 ", "a\r\nb\rc\nd", "X   ID    : 5   Nation: 0   Planes: 8", "", " "];
  const decoded = (name) => name.replace("\x80\x93", "€“");
  const flights = names.map((name, k) => flight(name, [place(k)], { plane: name }));
  const said = await give(report("r.txt", flights, { squadrons: names.map((name) => [name, 1]) }));
  assert.equal(said.message, "");
  assert.deepEqual(said.rows.map(({ squadron }) => squadron.replace(/^Nation 1/, "").replace(" (you)", "")), names.map(decoded));
  for (const row of await page.$$("#flights tbody tr")) await row.click();
  assert.deepEqual(await page.$$("#flights img, #flights script, #detail img, #detail script"), []);
  assert.equal(await page.title(), "Velmoran: the plan, before and after");
});

test("bad input is refused in one line and the picture stays", async () => {
  const { reports: [before, after] } = massage("campgn01", 0), all = before.buffer.toString("latin1");
  const line = (number) => all.split("\r\n").slice(0, number).join("\r\n").length + 2;
  const at24 = all.indexOf("Mission:        24 "), cut = (length) => text("cut.txt", all.slice(0, length));
  const cases = {
    "another text": [[text("notes.txt", "Dear diary\r\n")], "notes.txt, line 1: this is not a report of flights."],
    "an empty file": [[text("empty.txt", "")], "empty.txt, line 1: this is not a report of flights."],
    "bytes": [[{ ...before, name: "x.mis", buffer: Buffer.alloc(5000, 0x80) }], "x.mis, line 1: this is not a report of flights."],
    "a changed line": [[text("r.txt", all.replace("    Lat at Waypoint  1", "    Lot at Waypoint  1"))],
      "r.txt, line 20: this is not a report of flights."],
    "text after the end": [[text("r.txt", `${all}more\r\n`)], `r.txt, line ${all.split("\r\n").length}: this is not a report of flights.`],
    "cut between flights": [[cut(at24)], "cut.txt: 87 flights are announced, 24 found: is the end missing?"],
    "cut in a flight": [[cut(at24 + 200)], "cut.txt: 87 flights are announced, 25 found: is the end missing?"],
    "cut after a line": [[cut(line(40))], "cut.txt: 87 flights are announced, 1 found: is the end missing?"],
    "cut in the last list": [[cut(all.length - 30)], "cut.txt: 87 flights are announced, 87 found: is the end missing?"],
    "cut by one byte": [[cut(all.length - 1)], "cut.txt: 87 flights are announced, 87 found: is the end missing?"],
    "cut by one line": [[cut(all.length - 3)], "cut.txt: 87 flights are announced, 87 found: is the end missing?"],
    "too large": [[text("big.txt", all.padEnd(20e6 + 1))], "big.txt is larger than 20 MB."],
    "two days": [[before, massage("campgn02", 0).reports[1]],
      "before.txt and after.txt don't belong together: choose the reports of one day, from before and after its massage."],
    "the same twice": [[before, { ...before, name: "copy.txt" }],
      "before.txt and copy.txt are the same: choose one from before and one from after."],
    "three files": [[before, after, before], "3 files were chosen: choose one report, or two of the same day."],
  };
  const picture = await give(before, after);
  for (const name in cases) {
    const [files, message] = cases[name];
    assert.deepEqual(await give(...files), { ...picture, message }, name);
  }
  assert.equal((await give(before)).message, "");
});

test("one report is a map of the plan", async () => {
  const made = massage("campgn01", 0), said = await give(made.reports[1]);
  assert.deepEqual(pairs(said), made.after.flights.map(({ id }) => `${id}  yes`));
  assert.deepEqual(said.totals[0], { what: "flights", before: "58" });
  assert.equal(await page.isDisabled("#swap"), true);
});

test("one flight shows what the mission files hold", async () => {
  const made = massage("campgn01", 0);
  await give(...made.reports);
  const [was, is] = [made.before, made.after].map(({ player, flights }) => flights.find(({ id }) => id === player));
  await page.click("#flights tr:has-text('(you)')");
  const arrow = (from, to) => (from === to ? `${from}` : `${from} → ${to}`);
  const cells = await page.$$eval("#waypoints tr", (rows) => rows.map((row) => [2, 3, 4].map((k) => row.cells[k].textContent)));
  assert.deepEqual(cells, was.waypoints.map((from, k) =>
    ["altitude", "lon", "lat"].map((name) => arrow(from[name], is.waypoints[k][name]))));
  assert.ok((await page.textContent("#crew")).includes(`Pilots: ${was.pilots.join(", ")} → ${is.pilots.join(", ")}`));
  const [curveBefore, curveAfter] = await page.$$eval("#profile polyline", (lines) => lines.map((line) => line.points.length));
  assert.deepEqual([curveBefore, curveAfter], [was.waypoints.length, is.waypoints.length]);
});

test("the largest plan is read, paired and drawn in time", async (t) => {
  const { reports } = massage("campgn02", 0);
  const times = await page.evaluate(async (texts) => {
    const frame = () => new Promise((resolve) => { requestAnimationFrame(() => setTimeout(resolve)); });
    const timed = async (what) => { const start = performance.now(); await what(); await frame(); return performance.now() - start; };
    const files = new DataTransfer();
    texts.forEach((content, k) => files.items.add(new File([Uint8Array.from(content, (c) => c.charCodeAt(0))], `${k}.txt`)));
    const best = { read: Infinity, choose: Infinity, filter: Infinity }, updates = document.body.dataset;
    for (let round = 0; round < 3; round++) {
      const read = await timed(async () => {
        const last = updates.updates;
        document.dispatchEvent(new DragEvent("drop", { dataTransfer: files, cancelable: true }));
        while (updates.updates === last) await frame();
      });
      const side = document.querySelector("#my-side");
      side.checked = true;
      side.dispatchEvent(new Event("input"));
      const choose = await timed(() => document.querySelectorAll("#flights tbody tr:not([hidden])")[9 + round].click());
      const filter = await timed(() => side.click());
      for (const [name, time] of Object.entries({ read, choose, filter })) best[name] = Math.min(best[name], time);
    }
    return best;
  }, reports.map(({ buffer }) => buffer.toString("latin1")));
  t.diagnostic(`ms: ${Object.entries(times).map(([name, time]) => `${name} ${Math.round(time)}`).join(", ")}`);
  assert.ok(times.read <= 500 && times.choose <= 50 && times.filter <= 50);
});

test("a whole session by keys alone", async () => {
  await openPage();
  await give(...massage("campgn01", 0).reports);
  await page.evaluate(() => document.activeElement.blur());
  const drawn = () => page.evaluate(() => document.querySelector("canvas").toDataURL());
  const tabTo = async (selector) => {
    for (let presses = 0; presses < 40; presses++) {
      await page.keyboard.press("Tab");
      const outline = await page.evaluate(() => getComputedStyle(document.activeElement).outlineStyle);
      assert.notEqual(outline, "none");
      if (await page.evaluate((wanted) => document.activeElement.matches(wanted), selector)) return;
    }
    assert.fail(`${selector} is not reached`);
  };
  const press = async (...keys) => {
    for (const key of keys) await page.keyboard.press(key);
    await page.waitForTimeout(50);
  };
  const rows = () => page.$$eval("#flights tbody tr:not([hidden])", (found) => found.map((row) => row.dataset.before));
  const chosen = () => page.$$eval("#flights tr[aria-current]", (found) => found.map((row) => row.dataset.before));

  await tabTo("#swap");
  await tabTo("#map");
  const whole = await drawn();
  for (const key of ["+", "ArrowLeft", "-", "ArrowUp"]) {
    const last = await drawn();
    await press(key);
    assert.notEqual(await drawn(), last, key);
  }
  await press("0");
  assert.equal(await drawn(), whole);
  await tabTo("#my-side");
  await press("Space");
  assert.equal((await rows()).length, 87);
  await tabTo("#search");
  await page.keyboard.type("merlin");
  const merlins = await rows();
  assert.deepEqual(merlins.slice(0, 3), ["0", "1", "2"]);
  await tabTo("#type");
  await tabTo("#flights th button");
  await press("Enter", "Enter");
  assert.deepEqual(await rows(), [...merlins].reverse());
  await tabTo("#flights tbody button");
  await press("Enter");
  assert.deepEqual(await chosen(), [merlins.at(-1)]);
  await press("ArrowDown", "ArrowDown", "ArrowUp");
  assert.deepEqual(await chosen(), [merlins.at(-2)]);
  assert.equal(await page.isVisible("#detail"), true);
  await press("Escape");
  assert.deepEqual([await chosen(), await page.isVisible("#detail")], [[], false]);
});

test("axe finds nothing", async () => {
  const { reports } = massage("campgn01", 0);
  for (const colorScheme of ["light", "dark"]) {
    await openPage({ colorScheme });
    await page.evaluate(axe.source);
    const check = async (state) => {
      const { violations } = await page.evaluate(() => window.axe.run());
      assert.deepEqual(violations.map(({ id, nodes }) => `${id}: ${nodes[0].html}`), [], `${colorScheme}, ${state}`);
    };
    await check("empty");
    await give(...reports);
    await page.click("#flights tbody tr >> nth=2");
    await give(...reports, reports[0]);
    await check("a day, a flight and a refusal");
  }
});
