// Tests plan.html in Chromium. What it says of real reports is compared with the mission files' bytes, in which each
// flight has a number of its own that the massage carries through.
const assert = require("node:assert/strict");
const { spawnSync } = require("node:child_process");
const fs = require("node:fs");
const path = require("node:path");
const test = require("node:test");
const { pathToFileURL } = require("node:url");
const axe = require("axe-core");
const { chromium } = require("playwright-core");

const { CONSOLE, MAKE_SAMPLE, WORK } = process.env;
const Massages = Number(process.env.MASSAGES ?? 40);
const Repository = path.join(__dirname, "..", ".."), Sample = path.join(WORK, "sample");
const Url = pathToFileURL(path.join(Repository, "page", "plan.html")).href;
const Types = ["Bomb", "Recon", "Attack", "Spotting", "CAP", "Barrage Patrol", "Balloon Bust", "Escort",
  "Balloon Defense", "Infantry Defense", "Attack Support", "Barrage Support", "Offensive Patrol", "Lone Wolf"];

const arrow = (was, is) => (is === undefined || was === is ? `${was}` : `${was} → ${is}`);
const file = (name, buffer) => ({ name, mimeType: "text/plain", buffer: Buffer.from(buffer, "latin1") });

// ---- Mission files

function readMission(bytes) {
  const flights = [], long = (at) => bytes.readInt32LE(at);
  for (let at = 17, left = long(13); left > 0; left--) {
    const flight = { id: long(at), squadron: long(at + 4), type: Types[long(at + 20)], size: long(at + 28) };
    const count = long(at + 192), escorts = long(at + 204) > 0;
    if (escorts && flight.type === "Escort") flight.escorted = long(at + 216);
    at += escorts ? 220 : 216;
    flight.waypoints = Array.from({ length: count }, (_, k) => at + 46 * k).map((w) =>
      ({ altitude: 32 * bytes.readUInt16LE(w + 29), lon: long(w + 12), lat: long(w + 16) }));
    at += 46 * count;
    Object.assign(flight, { tagAt: at, tag: long(at) });
    flight.pilots = Array.from({ length: 12 }, (_, k) => long(at + 52 + 4 * k)).filter((pilot) => pilot !== -1);
    flights.push(flight);
    at += 148;
  }
  return { player: long(8), flights };
}

// Massages a day of the sample, with odds, date, shift and player's flight by the seed; with 0 as they are.
function massage(mission, seed = 0) {
  let state = seed;
  const random = () => (state = (Math.imul(state, 1664525) + 1013904223) >>> 0) / 2 ** 32;
  const folder = path.join(WORK, "massage"), of = (name) => path.join(folder, name);
  const edit = (name, change) => fs.writeFileSync(of(name), change(fs.readFileSync(of(name))));
  const mis = `campaign/${mission}.mis`;
  fs.rmSync(folder, { recursive: true, force: true });
  fs.cpSync(Sample, folder, { recursive: true });
  edit(mis, (bytes) => {
    const { flights } = readMission(bytes);
    flights.forEach(({ tagAt }, k) => bytes.writeInt32LE(1000 + k, tagAt));
    const pilots = (squadron) => flights.filter((one) => one.squadron === squadron).flatMap((one) => one.pilots).length;
    const players = flights.filter(({ squadron }) => pilots(squadron) <= 13);  // as many as the tool takes
    if (seed) bytes.writeInt32LE(players[Math.floor(random() * players.length)].id, 8);
    return bytes;
  });
  if (seed) {
    edit(`campaign/${mission}.dat`, (bytes) => {
      bytes.writeInt32LE(2420496 + Math.floor(random() * 1400), 3200);
      bytes.writeInt16LE(Math.floor(random() * 5), 3460);
      return bytes;
    });
    const spread = random() * 1.3;
    edit("velmoran/Velmoran.ini", (text) => `${text}`.replace(/\d\.\d\d/g, () => (random() * spread).toFixed(2)));
  }
  const before = readMission(fs.readFileSync(of(mis)));
  const lines = ["open", `../${mis}`, "report", "before.txt", "massage", "report", "after.txt", "write", "exit", ""];
  const run = spawnSync(CONSOLE, { cwd: of("velmoran"), input: lines.join("\n"), encoding: "latin1" });
  assert.equal(run.status, 0, `seed ${seed}: ${run.stdout}`);
  const reports = ["before.txt", "after.txt"].map((name) => file(name, fs.readFileSync(of(`velmoran/${name}`))));
  return { before, after: readMission(fs.readFileSync(of(mis))), reports };
}

// What the page must say of each flight before.
function truthOf({ before, after }) {
  const escorts = ({ flights }, { id, escorted }) => [flights.find((one) => one.id === escorted)?.tag,
    ...flights.filter((one) => one.escorted === id).map((one) => one.tag)].join();
  const players = before.flights.find(({ id }) => id === before.player), onSide0 = ({ squadron }) => squadron <= 80;
  return before.flights.map((was) => {
    const is = after.flights.find(({ tag }) => tag === was.tag);
    const moved = (...names) => was.waypoints.some((from, k) => names.some((n) => from[n] !== is.waypoints[k][n]));
    const changes = !is ? { removed: true } : { altitude: moved("altitude"), route: moved("lon", "lat"),
      escort: escorts(before, was) !== escorts(after, is), size: was.size !== is.size, type: was.type !== is.type };
    const visible = onSide0(was) === onSide0(players);
    return { numbers: [`${was.id}`, is && `${is.id}`], changes,
      shown: [visible, was === players, arrow(was.type, is?.type), arrow(was.size, is?.size)] };
  });
}

function totalsOf({ before, after }) {
  const totals = {};
  [before, after].forEach(({ flights }, k) => {
    const add = (what, number) => { (totals[what] ??= [0, 0])[k] += number; };
    for (const { size, pilots, type } of flights) {
      add("flights", 1), add("planes", size), add("pilots", pilots.length), add(type, 1);
    }
  });
  return totals;
}

// ---- Made-up reports

const at = (lon, action = 4) => ({ lon, action });
const flight = (squadron, route, { type = "CAP", pilots = [1], plane = "Scout" } = {}) =>
  ({ squadron, route, type, pilots, plane });

function report(name, flights, { player = 0, squadrons = [["Alpha", 1]] } = {}) {
  const block = ({ squadron, route, type, pilots, plane }, id) => [
    `Mission:        ${id} `, `Squadron:      ${squadron}`, `Mission:       ${type}`, "Num Planes:     1 ", " ",
    `    Plane: ${plane}`, " ", ...pilots.map((pilot) => `    Pilot:  ${pilot} `), ...route.flatMap(waypoint)];
  const waypoint = ({ lon, action }, k) => [
    `    Altitude at Waypoint  ${k + 1} :  320 `, `    Lon at Waypoint  ${k + 1} :  ${lon} `,
    `    Lat at Waypoint  ${k + 1} :  0 `, `    Action at Waypoint     ${k + 1} :  ${action}         Something`,
    `    Formation at Waypoint  ${k + 1} :  9         In Trail`];
  return file(name, [`Player Flight ID :        ${player} `, `Mission Count    :        ${flights.length} `, " ",
    ...flights.flatMap(block), " ", " ", " ", " ", " ", ...squadrons.map(([squadron, nation], id) =>
      `Squadron: ${squadron}   ID    : ${id}   Nation: ${nation}   Planes: 1`), " ", " ", ""].join("\r\n"));
}

// ---- The page

let browser, page, requests, faults;

async function openPage(options = {}) {
  await page?.close();
  page = await browser.newPage({ viewport: { width: 1372, height: 869 }, ...options });
  [requests, faults] = [[], []];
  page.on("request", (request) => requests.push(request.url()));
  page.on("console", (message) => faults.push(message.text()));
  page.on("pageerror", (error) => faults.push(error.message));
  await page.goto(Url);
}

const read = () => page.evaluate(() => ({
  message: document.querySelector("#message").textContent,
  totals: [...document.querySelectorAll("#totals [data-what]")].map((entry) => ({ ...entry.dataset })),
  rows: [...document.querySelectorAll("#flights tbody tr")].map((row) => ({
    ...row.dataset, visible: !row.hidden, cells: [...row.cells].map((cell) => cell.textContent) })),
}));

// Gives the page the files; returns what it says then.
async function give(...files) {
  const updates = await page.evaluate(() => Number(document.body.dataset.updates));
  await page.setInputFiles("#files", files);
  await page.waitForFunction((last) => Number(document.body.dataset.updates) === last + 1, updates);
  return read();
}

// The numbers before of the rows that a filter of changes leaves, of both sides.
const filterByChange = (change) => page.evaluate((wanted) => {
  const side = document.getElementById("my-side"), select = document.getElementById("change");
  const set = (mine, kind) => {
    [side.checked, select.value] = [mine, kind];
    select.dispatchEvent(new Event("input"));
  };
  set(false, wanted);
  const offered = select.value === wanted, rows = [...document.querySelectorAll("#flights tbody tr:not([hidden])")];
  set(true, "");
  return offered ? rows.map((row) => row.dataset.before) : [];
}, change);

const pairs = ({ rows }) =>
  rows.map(({ before = "", after = "", certain }) => `${before}-${after} ${certain}`).join(", ");
const isYou = ({ cells }) => cells[1].includes("(you");

test.before(async () => {
  const made = spawnSync(MAKE_SAMPLE, [path.join(Repository, "sample"), Sample]);
  assert.equal(made.status, 0, `${made.stderr}`);
  browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox", "--disable-gpu",
    "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync"] });
  await openPage();
});
test.after(() => browser?.close());
test.afterEach(() => {
  assert.deepEqual(requests, [Url], "only the page itself is requested");
  assert.deepEqual(faults, [], "nothing is logged or thrown");
});

test("what the page says of massages is what the mission files say", async (t) => {
  let flights = 0, uncertain = 0, wrong = 0;
  for (let seed = 0; seed < Massages; seed++) {
    const made = massage(seed % 4 ? "campgn01" : "campgn02", seed), truth = truthOf(made);
    const content = await give(...(seed % 2 ? made.reports : made.reports.reverse()));
    assert.equal(content.message, "", `seed ${seed}`);
    const totals = content.totals.map(({ what, before, after }) => [what, [Number(before), Number(after)]]);
    assert.deepEqual(Object.fromEntries(totals), totalsOf(made), `seed ${seed}`);
    const isRight = ({ before, after }, k) => before === truth[k].numbers[0] && after === truth[k].numbers[1];
    flights += truth.length;
    uncertain += content.rows.filter(({ certain }) => certain === "no").length;
    wrong += content.rows.filter((row, k) => row.certain === "yes" && !isRight(row, k)).length;
    if (!content.rows.every(isRight)) continue;
    assert.deepEqual(content.rows.map((row) => [row.visible, isYou(row), row.cells[3], row.cells[4]]),
      truth.map(({ shown }) => shown), `seed ${seed}`);
    for (const kind of ["altitude", "escort", "route", "size", "type", "removed"]) {
      const expected = truth.filter(({ changes }) => changes[kind]).map(({ numbers }) => numbers[0]);
      assert.deepEqual(await filterByChange(kind), expected, `seed ${seed}, ${kind}`);
    }
  }
  t.diagnostic(`${Massages} massages, ${flights} flights, ${uncertain} uncertain, ${wrong} wrong`);
  assert.equal(wrong, 0);
  assert.ok(uncertain <= flights / 100);
});

test("pairs are certain only where nothing else is possible", async () => {
  const route = [at(1), at(2), at(9), at(4100000), at(8, 10), at(3)];
  const moved = [at(1), at(2), at(200009, 9), at(4190000), at(300008, 14), at(3)];
  const bravo = (options) => flight("Bravo", route, options), alpha = (...pilots) => flight("Alpha", route, { pilots });
  const own = flight("Alpha", [at(0)]), twin = bravo(), escort = bravo({ type: "Escort" });
  const cases = {
    "twins, one removed": [[own, twin, twin], [own, twin], "0-0 yes, 1-1 no, 2- no"],
    "twins, none removed": [[own, twin, twin], [own, twin, bravo({ type: "Recon" })], "0-0 yes, 1-1 yes, 2-2 yes"],
    "other pilots": [[own, twin, bravo({ pilots: [2] })], [own, bravo({ pilots: [2] })], "0-0 yes, 1- yes, 2-1 yes"],
    "own squadron's pilots": [[own, alpha(5, 6), alpha(7, 8)], [own, alpha(5, 8)], "0-0 yes, 1-1 yes, 2- yes"],
    "own squadron, no pilots left": [[own, alpha(5, 6), flight("Alpha", route, { type: "Escort" })], [own, alpha()],
      "0-0 yes, 1-1 yes, 2- yes"],
    "a type that no massage gives": [[own, twin, escort], [own, escort], "0-0 yes, 1- yes, 2-1 yes"],
    "a moved route": [[own, twin, escort], [own, flight("Bravo", moved)], "0-0 yes, 1-1 yes, 2- yes"],
    "no waypoints": [[own, flight("Bravo", []), flight("Delta", [])], [own, flight("Delta", [])],
      "0-0 yes, 1- yes, 2-1 yes"],
    "nobody left": [[own], [], "0- yes"],
  };
  for (const [name, [before, after, expected]] of Object.entries(cases)) {
    assert.equal(pairs(await give(report("before.txt", before), report("after.txt", after))), expected, name);
  }
});

test("which report came first, and swapping", async () => {
  const was = [flight("Alpha", [at(1), at(2), at(3), at(4)]), flight("Bravo", [at(1)], { pilots: [1, 2] })];
  const is = [flight("Alpha", [at(1), at(2), at(300003), at(4)], { type: "Recon" }), was[1]];
  const before = report("b.txt", was), after = report("a.txt", is);
  for (const files of [[before, after], [after, before]]) {
    await give(...files);
    assert.match(await page.textContent("#note"), /^Before: b.txt. After: a.txt./);
  }
  assert.equal(pairs(await give(report("a.txt", [is[0]]), before)), "0-0 yes, 1- yes");
  await page.click("#swap");
  const content = await read();
  assert.equal(pairs(content), "0-0 yes, -1 yes");
  assert.equal(content.rows[1].cells[6], "added");
  assert.deepEqual(content.totals.map(({ what, before, after }) => `${what} ${before} ${after}`).sort(),
    ["CAP 0 2", "Recon 1 0", "flights 1 2", "pilots 1 3", "planes 1 2"]);
});

test("the player's flight is marked only where it is proven", async () => {
  const options = (player) => ({ player, squadrons: [["Alpha", 1], ["Bravo", 1]] });
  const alpha = flight("Alpha", [at(1)]);
  const bravo = flight("Bravo", [at(2)]), escort = flight("Bravo", [at(2)], { type: "Escort" });
  const marked = (content) => pairs({ rows: content.rows.filter(isYou) });
  const before = report("before.txt", [alpha, bravo, alpha, bravo, escort], options(1));
  assert.equal(marked(await give(before)), "1- yes");
  const removed = report("after.txt", [alpha, alpha, escort], options(1));  // its number is another flight's now
  assert.equal(pairs(await give(before, removed)), "0-0 yes, 1- yes, 2-1 yes, 3- yes, 4-2 yes");
  assert.equal(marked(await read()), "1- yes");
  const kept = report("after.txt", [bravo], options(0));  // its new number says which of two that look alike it is
  assert.equal(pairs(await give(before, kept)), "0- yes, 1-0 yes, 2- yes, 3- yes, 4- yes");
  assert.equal(marked(await read()), "1-0 yes");
});

test("flights of the other side are hidden, flights without a nation are not", async () => {
  const names = ["Alpha", "Bravo", "Two nations", "Unknown", "Unlisted", "Charlie"];
  const nations = { Alpha: [1], Bravo: [0], "Two nations": [0, 2], Unknown: [0], Charlie: [4] };
  const squadrons = Object.entries(nations).flatMap(([name, of]) => of.map((nation) => [name, nation]));
  const flights = names.map((name, k) => flight(name, [at(k)]));
  const shown = ({ rows }) => rows.filter(({ visible }) => visible).map(({ before }) => names[before]);
  const content = await give(report("r.txt", flights, { squadrons }));
  assert.deepEqual(shown(content), names.filter((name) => name !== "Bravo"));
  await page.selectOption("#nation", "4");
  assert.deepEqual(shown(await read()), names.slice(2));
  await page.selectOption("#nation", "");
  await page.uncheck("#my-side");
  assert.deepEqual(shown(await read()), names);
  await page.check("#my-side");
  assert.deepEqual(shown(await give(report("r.txt", flights, { player: 9, squadrons }))), names, "no player's flight");
});

test("names are text, whatever they hold", async () => {
  const names = ["<img src=x onerror=document.title=1>", "</td><script>document.title=1</script>",
    "&lt;b&gt;, \"q\" 'q'", "M\xfcller \x80", "a\0b", "Mission:        3 ", "a\r\nb\rc\nd",
    "X   ID    : 5   Nation: 0   Planes: 8", "", " "];
  const flights = names.map((name, k) => flight(name, [at(k)], { plane: name }));
  const content = await give(report("r.txt", flights, { squadrons: names.map((name) => [name, 1]) }));
  const decoded = names.map((name) => name.replace("\x80", "€"));
  assert.deepEqual(content.rows.map(({ cells }) => [cells[1].replace(" (you)", ""), cells[2]]),
    decoded.map((name) => [`Nation 1${name}`, name || "none"]));
  for (const row of await page.$$("#flights tbody tr")) await row.click();
  assert.equal(await page.title(), "Velmoran: the plan, before and after");
  assert.equal((await page.$$("main img, main script")).length, 0);
  assert.match((await page.getAttribute("meta[http-equiv]", "content")).replace(/\s+/g, " "),
    /^ default-src 'none'; style-src 'sha256-[^']+'; script-src 'sha256-[^']+'$/);
});

test("bad input is refused in one line, and the picture stays", async () => {
  const { reports: [before, after] } = massage("campgn01"), all = before.buffer.toString("latin1");
  const flight24 = all.indexOf("Mission:        24 "), end = all.length, lines = all.split("\r\n");
  const cut = (length) => [file("cut.txt", all.slice(0, length))];
  const big = path.join(WORK, "big.txt");
  fs.writeFileSync(big, Buffer.alloc(20e6 + 1));
  const notReport = (name, line) => `${name}, line ${line}: this is not a report of flights.`;
  const isCut = (found) => `cut.txt: 87 flights are announced, ${found} found: is the end missing?`;
  const cases = {
    "another text": [[file("notes.txt", "Dear diary\r\n")], notReport("notes.txt", 1)],
    "an empty file": [[file("empty.txt", "")], notReport("empty.txt", 1)],
    "a changed line": [[file("r.txt", all.replace("    Lat", "    Lot"))], notReport("r.txt", 20)],
    "text after the end": [[file("r.txt", `${all}more\r\n`)], notReport("r.txt", lines.length)],
    "cut between flights": [cut(flight24), isCut(24)],
    "cut in a flight": [cut(flight24 + 200), isCut(25)],
    "cut after a line": [cut(lines.slice(0, 40).join("\r\n").length + 2), isCut(1)],
    "cut in the last list": [cut(end - 30), isCut(87)],
    "cut by a line": [cut(end - 3), isCut(87)],
    "cut by a byte": [cut(end - 1), isCut(87)],
    "too large": [[big], "big.txt is larger than 20 MB."],
    "two days": [[before, massage("campgn02").reports[1]], "before.txt and after.txt don't belong together: choose " +
      "the reports of one day, from before and after its massage."],
    "the same twice": [[before, { ...before, name: "copy.txt" }],
      "before.txt and copy.txt are the same: choose one from before and one from after."],
    "three files": [[before, after, before], "3 files were chosen: choose one report, or two of one day."],
  };
  const picture = await give(before, after);
  for (const [name, [files, message]] of Object.entries(cases)) {
    assert.deepEqual(await give(...files), { ...picture, message }, name);
  }
  assert.equal((await give(before)).message, "");
});

test("one report is a map of the plan, and a click in the map chooses a flight", async () => {
  const content = await give(report("r.txt", [flight("Alpha", [at(0), at(100)])]));
  assert.equal(pairs(content), "0- yes");
  assert.deepEqual(content.totals[0], { what: "flights", before: "1" });
  assert.equal(await page.isDisabled("#swap"), true);
  await page.click("#map");
  assert.equal(await page.getAttribute("#flights tbody tr", "aria-current"), "true");
  await page.click("#map", { position: { x: 5, y: 5 } });
  assert.equal(await page.getAttribute("#flights tbody tr", "aria-current"), null);
});

test("one flight shows what the mission files hold", async () => {
  const { before, after, reports } = massage("campgn01");
  await give(...reports);
  await page.click("#flights tr:has-text('(you)')");
  const [was, is] = [before, after].map(({ player, flights }) => flights.find(({ id }) => id === player));
  const cells = await page.$$eval("#waypoints tr", (rows) =>
    rows.map((row) => [2, 3, 4].map((k) => row.cells[k].textContent)));
  assert.deepEqual(cells, was.waypoints.map((from, k) =>
    ["altitude", "lon", "lat"].map((name) => arrow(from[name], is.waypoints[k][name]))));
  assert.ok((await page.textContent("#crew")).includes(`Pilots: ${was.pilots.join(", ")} → ${is.pilots.join(", ")}`));
  assert.deepEqual(await page.$$eval("#profile polyline", (curves) => curves.map(({ points }) => points.length)),
    [was.waypoints.length, is.waypoints.length]);
});

test("the largest plan is read, paired and drawn in time", async (t) => {
  const texts = massage("campgn02").reports.map(({ buffer }) => buffer.toString("latin1"));
  const best = await page.evaluate(async (contents) => {
    const drawn = () => new Promise((resolve) => { requestAnimationFrame(() => setTimeout(resolve)); });
    const best = {}, files = new DataTransfer(), side = document.querySelector("#my-side");
    const timed = async (what, action) => {
      const start = performance.now();
      await action();
      await drawn();
      best[what] = Math.min(best[what] ?? Infinity, performance.now() - start);
    };
    contents.forEach((content, k) =>
      files.items.add(new File([Uint8Array.from(content, (c) => c.charCodeAt(0))], `${k}.txt`)));
    for (let round = 0; round < 10; round++) {
      await timed("drop", async () => {
        const { updates } = document.body.dataset;
        document.dispatchEvent(new DragEvent("drop", { dataTransfer: files, cancelable: true }));
        while (document.body.dataset.updates === updates) await drawn();
      });
      await timed("filter", () => side.click());
      await timed("choose", () => document.querySelectorAll("#flights tbody tr:not([hidden])")[9 + round].click());
    }
    if (!side.checked) side.click();
    return best;
  }, texts);
  t.diagnostic(Object.entries(best).map(([what, time]) => `${what} ${Math.round(time)} ms`).join(", "));
  assert.ok(best.drop <= 500 && best.choose <= 50 && best.filter <= 50);
});

test("a whole session by keys alone", async () => {
  await openPage();
  await give(...massage("campgn01").reports);
  await page.evaluate(() => document.activeElement.blur());
  const picture = () => page.evaluate(() => document.querySelector("canvas").toDataURL());
  const numbers = (which) => page.$$eval(`#flights tbody tr${which}`, (rows) => rows.map((row) => row.dataset.before));
  const tabTo = async (selector) => {
    for (let presses = 0; presses < 40; presses++) {
      await page.keyboard.press("Tab");
      const [reached, outline] = await page.evaluate((wanted) => [document.activeElement.matches(wanted),
        getComputedStyle(document.activeElement).outlineStyle], selector);
      assert.notEqual(outline, "none", "focus is visible");
      if (reached) return;
    }
    assert.fail(`Tab doesn't reach ${selector}`);
  };
  const press = async (...keys) => {
    for (const key of keys) await page.keyboard.press(key);
    await page.waitForTimeout(50);
  };
  await tabTo("#swap");
  await tabTo("#map");
  const whole = await picture();
  for (const key of ["+", "ArrowLeft", "-", "ArrowUp"]) {
    const last = await picture();
    await press(key);
    assert.notEqual(await picture(), last, key);
  }
  await press("0");
  assert.equal(await picture(), whole);
  await tabTo("#my-side");
  await press("Space");
  assert.equal((await numbers(":not([hidden])")).length, 87);
  assert.notEqual(await picture(), whole, "the map is filtered too");
  await tabTo("#search");
  await page.keyboard.type("merlin");
  const merlins = await numbers(":not([hidden])");
  assert.deepEqual(merlins.slice(0, 3), ["0", "1", "2"]);
  await tabTo("#flights th button");
  await press("Enter", "Enter");
  assert.deepEqual(await numbers(":not([hidden])"), [...merlins].reverse());
  await tabTo("#flights tbody button");
  await press("Enter", "ArrowDown", "ArrowDown", "ArrowUp");
  assert.deepEqual(await numbers("[aria-current]"), [merlins.at(-2)]);
  assert.equal(await page.isVisible("#detail"), true);
  await press("Escape");
  assert.equal(await page.isVisible("#detail"), false);
});

test("axe finds nothing", async () => {
  const { reports } = massage("campgn01");
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
