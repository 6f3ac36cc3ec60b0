// SPDX-License-Identifier: Apache-2.0
// Reads the JSON of the page into the data of the views.

// Integers that are too large for a number of the browser stay texts. In a text of many megabytes they are rounded.
function parseJson(text) {
    if (!/\d{16}/.test(text)) return JSON.parse(text);
    let exact = text;
    try {
        exact = text.replace(/"[^"\\]*(?:\\.[^"\\]*)*"|-?\d+(?:\.\d+)?(?:[eE][-+]?\d+)?/g,
            (token) => (/^-?\d{16,}$/.test(token) && !Number.isSafeInteger(Number(token)) ? `"${token}"` : token));
    } catch (error) {
        if (!(error instanceof RangeError)) throw error;
    }
    return JSON.parse(exact);
}

// Returns one object, or an array of the objects of JSON lines. An object of the page has no line ends.
function readData(name) {
    const script = document.querySelector(`script[type="application/json"][data-name="${name}"]`);
    if (!script) return null;
    const lines = script.textContent.trim().split('\n');
    return lines.length === 1 ? parseJson(lines[0]) : lines.map(parseJson);
}

const VERDICT_TONES = {written: 'good', 'wrong-type': 'bad', 'not-offered': 'bad', overflows: 'bad'};
const CHECK_TONES = {fine: 'good', mistyped: 'bad', malformed: 'bad', doubtful: 'warn', missing: 'plain', noEntry: 'plain'};
const verdictTone = (verdict) => VERDICT_TONES[verdict] || 'warn';
const VERDICT_WORDS = {fallback: 'fallback written', undeclared: 'tag not declared', unread: 'read by no setter'};
const verdictWord = (verdict) => VERDICT_WORDS[verdict] || verdict.replace(/-/g, ' ');

// Adds to the events their places in a run: the session, the command that they belong to, the number of
// requests so far, and the frame.
class Events {
    constructor(list) {
        this.all = [];
        this.devices = [];
        this.requests = [];  // indexes in `all`
        this.findings = [];
        const place = {moment: -1, line: 0, command: '', session: '', request: 0, frame: 0, device: null, time: undefined};
        for (const data of list) this.add(data, place);
        this.moments = place.moment + 1;
    }

    add(data, place) {
        if (data.event === undefined) return;
        if (data.event === 'device') {
            place.device = data;
            this.devices.push(data);
        }
        if (data.event === 'session') Object.assign(place, {session: data.file, line: 0, command: '', request: place.request});
        if (data.event === 'command') Object.assign(place, {line: data.line, command: data.text});
        if (data.event === 'command' || data.event === 'session') ++place.moment;
        if (data.event === 'request') ++place.request;
        if (data.event === 'result') place.frame = data.frame;
        const item = {index: this.all.length, kind: data.event, data, ...place, moment: Math.max(0, place.moment)};
        if (data.event === 'expectation') item.line = data.line;
        this.all.push(item);
        if (data.event === 'request') this.requests.push(item.index);
        this.find(item);
    }

    // Finds the item that the page shows first.
    find(item) {
        const {data} = item;
        if (data.event === 'expectation' && !data.met) {
            this.findings.push({tone: 'bad', item, what: 'expectation failed', name: data.text,
                why: `expected ${data.expected}, but there is ${data.actual}`});
        }
        if (data.event === 'error') this.findings.push({tone: 'bad', item, what: 'not played', name: data.text, why: ''});
        if (data.event === 'verdicts') this.findVerdicts(item);
    }

    // Equal verdicts of one parameter are one finding, with the number of requests.
    findVerdicts(item) {
        this.known = this.known || new Map();
        for (const row of item.data.parameters) {
            if (row.verdict === 'written' || row.owner) continue;  // keys that are not the library's are not findings
            const id = JSON.stringify([item.session, row.key, row.value, row.verdict]);
            const known = this.known.get(id);
            if (known) {
                ++known.times;
                continue;
            }
            const finding = {tone: verdictTone(row.verdict), item, what: verdictWord(row.verdict), name: `${row.key}=${row.value}`,
                why: row.reason || (row.perhaps ? `perhaps ${row.perhaps.join(' or ')} is meant` : ''), key: row.key, line: row.line, times: 1};
            this.known.set(id, finding);
            this.findings.push(finding);
        }
    }

    count(kind, test) { return this.all.filter((item) => item.kind === kind && (!test || test(item.data))).length; }
}

// Returns the words for a place in a session: "Request 3", "frame 7", "line 12".
function placeText(item) {
    const parts = [];
    if (item.isTrace) return [frameText(item) || (item.data.time && item.data.time.text), `line ${item.line}`].filter(Boolean).join(', ');
    if (item.kind === 'request' || item.kind === 'verdicts') parts.push(`request ${item.request}`);
    if (item.kind === 'result') parts.push(`frame ${item.frame}`);
    if (item.line) parts.push(`line ${item.line}`);
    return parts.join(', ');
}
