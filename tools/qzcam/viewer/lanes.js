// SPDX-License-Identifier: Apache-2.0
// The lanes of the timeline: one for each parameter and entry that changes, and those of the session itself.

const LANE_GROUPS = [['session', 'Session'], ['parameter', 'Parameters'], ['request', 'Request entries'], ['result', 'Result entries']];

// In a lane of values each value lasts until the next change. A lane of marks has single marks.
class Lane {
    constructor(group, name, label, marks) {
        Object.assign(this, {id: `${group}:${name}`, group, name, label, marks, at: [], texts: [], tones: [], worst: 'good'});
    }

    // `text` null: no value from here on.
    push(index, text, tone) {
        if (this.at[this.at.length - 1] === index && this.texts[this.texts.length - 1] === null) this.drop();
        this.at.push(index);
        this.texts.push(text);
        this.tones.push(tone);
        if (tone === 'bad' || (tone === 'warn' && this.worst !== 'bad')) this.worst = tone;
    }

    // A value that ends and begins again at one place continues.
    drop() {
        this.at.pop();
        this.texts.pop();
        this.tones.pop();
    }

    get active() { return !this.marks && this.texts.length > 0 && this.texts[this.texts.length - 1] !== null; }

    // Returns the last change at or before the event, or -1.
    before(index) { return upperBound(this.at, index) - 1; }
}

// Returns how many elements of a sorted list are not above the value.
function upperBound(list, value) {
    let low = 0;
    let high = list.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (list[middle] <= value) low = middle + 1;
        else high = middle;
    }
    return low;
}

class Lanes {
    constructor(events) {
        this.events = events;
        this.byId = new Map();
        for (const [name, label] of [['commands', events.readInto ? 'Requests, results' : 'Commands'], ['expectations', 'Expectations'], ['messages', 'Messages'], ['log', 'Log']]) {
            this.byId.set(`session:${name}`, new Lane('session', name, label, true));
        }
        for (const item of events.all) this.read(item);
        const order = new Map(LANE_GROUPS.map(([group], index) => [group, index]));
        this.all = [...this.byId.values()].filter((lane) => lane.at.length > 0);
        this.all.sort((a, b) => order.get(a.group) - order.get(b.group));
    }

    lane(group, name, label) {
        const id = `${group}:${name}`;
        if (!this.byId.has(id)) this.byId.set(id, new Lane(group, name, label, false));
        return this.byId.get(id);
    }

    mark(name, item, text, tone) { this.byId.get(`session:${name}`).push(item.index, text, tone); }

    read(item) {
        if (this.events.readInto) return this.events.readInto(this, item);
        const {kind, data, index} = item;
        const opens = kind === 'command' && /^(open|close)\b/.test(data.text);
        if (kind === 'session' || opens) this.endAll(index, opens);
        if (kind === 'command') this.mark('commands', item, data.text, 'info');
        if (kind === 'expectation') this.mark('expectations', item, data.text, data.met ? 'good' : 'bad');
        if (kind === 'error') this.mark('expectations', item, data.text, 'bad');
        if (kind === 'callback') this.mark('messages', item, data.name || `0x${data.code.toString(16)}`, 'info');
        if (kind === 'log') this.mark('log', item, `${data.tag}: ${data.text}`, logTone(data));
        if (kind === 'verdicts') this.readParameters(item);
        if (kind === 'request') this.readEntries('request', item);
        if (kind === 'result') this.readEntries('result', item);
    }

    // Another session or another camera begins without values.
    endAll(index) {
        for (const lane of this.byId.values()) if (lane.active) lane.push(index, null, 'plain');
    }

    readParameters(item) {
        const seen = new Set();
        for (const row of item.data.parameters) {
            const lane = this.lane('parameter', row.key, row.key);
            const tone = row.owner ? 'plain' : verdictTone(row.verdict);
            const last = lane.at.length - 1;
            seen.add(lane.id);
            if (!lane.active || lane.texts[last] !== row.value || lane.tones[last] !== tone) lane.push(item.index, row.value, tone);
        }
        for (const lane of this.byId.values()) {
            if (lane.group === 'parameter' && lane.active && !seen.has(lane.id)) lane.push(item.index, null, 'plain');
        }
    }

    readEntries(group, item) {
        for (const entry of item.data.entries) {
            if (entry.change === 'none') continue;
            const lane = this.lane(group, entry.tag, shortName(entry.tag));
            lane.push(item.index, entry.change === 'gone' ? null : valueText(entry.values), group === 'request' ? 'request' : 'result');
        }
    }
}

// Lines that only name a function count as debug, whatever their level.
function logTone(data) {
    const level = data.countsAs || data.level;
    if (level === 'E' || level === 'F') return 'bad';
    return level === 'W' ? 'warn' : 'plain';
}
