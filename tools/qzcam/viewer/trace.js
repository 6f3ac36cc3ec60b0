// SPDX-License-Identifier: Apache-2.0
// The events of a phone for the timeline: facts from logs and dumps instead of the events of a session.

const TRACE_TONES = {refused: 'bad', undeclared: 'warn', gated: 'warn', lost: 'warn', told: 'good'};

class TraceEvents {
    constructor(list) {
        Object.assign(this, {all: [], devices: [], requests: [], findings: [], inputs: [], groups: 0});
        for (const data of list) {
            if (data.event === 'input') this.inputs[data.input] = data.name;
            else if (data.event === 'group') ++this.groups;
            else if (data.line !== undefined) this.add(data);
        }
        for (const data of list) if (data.event === 'parameter') this.find(data);
        this.moments = this.all.length;
    }

    add(data) {
        const before = this.all[this.all.length - 1];
        const item = {index: this.all.length, kind: data.event, data, line: data.line, moment: this.all.length, session: this.inputs[data.input] || '', group: this.groups,
            frame: data.frame === undefined ? (before ? before.frame : 0) : data.frame, request: 0,
            time: data.time && data.time.nanoseconds !== undefined ? Number(data.time.nanoseconds) / 1e6 : undefined};
        this.all.push(item);
    }

    // The table by parameter: what did not arrive.
    find(row) {
        for (const [kind, word] of [['refused', 'refused'], ['undeclared', 'tag not declared'], ['gated', 'gate closed']]) {
            const count = row[kind];
            if (!count || count.times === 0) continue;
            const item = this.all.find((each) => each.kind === kind && (each.data.keys || []).includes(row.key)) || this.all.find((each) => count.lines.includes(each.line));
            if (!item) continue;
            const why = [row.declared.length ? `declared as ${[row.declared].flat().join(', ')}` : '', row.statuses.length ? `status ${row.statuses.join(', ')}` : '', item.data.cause || ''];
            this.findings.push({tone: TRACE_TONES[kind], item, what: word, name: row.key, why: why.filter(Boolean).join('; '), key: row.key, times: count.times});
        }
    }

    badges() {
        const of = (kind) => this.all.filter((item) => item.kind === kind).length;
        return [badge('plain', counted(of('entry'), 'entry', 'entries')), badge('plain', counted(of('message'), 'message')),
            of('refused') ? badge('bad', `${of('refused').toLocaleString('en')} refused`) : null, of('undeclared') ? badge('warn', `${of('undeclared').toLocaleString('en')} not declared`) : null].filter(Boolean);
    }

    // Fills the lanes in the place of those of a session.
    readInto(lanes, item) {
        const {kind, data} = item;
        const text = data.removed ? null : data.value === undefined || data.value === null ? 'unknown' : String(data.value);
        const side = data.of === 'result' ? 'result' : 'request';
        const tone = TRACE_TONES[kind] || side;
        if (data.tag && ['entry', 'told', 'refused'].includes(kind)) lanes.lane(side, data.tag, shortName(data.tag)).push(item.index, kind === 'refused' ? `refused: ${text}` : text, kind === 'entry' ? side : tone);
        for (const key of kind === 'entry' ? [] : data.keys || []) {
            const lane = lanes.lane('parameter', key, key);
            lane.marks = true;
            lane.push(item.index, kind === 'told' ? `${text}` : kind, tone === side ? 'info' : tone);
        }
        if (kind === 'message') lanes.mark('messages', item, data.message, data.derived ? 'plain' : 'info');
        else if (['request', 'result', 'list', 'parameters'].includes(kind)) lanes.mark('commands', item, data.text || kind, 'info');
        else if (['line', 'lost'].includes(kind) || !data.tag) lanes.mark('log', item, data.text || kind, TRACE_TONES[kind] || 'plain');
    }

    // The lanes that one line feeds belong together, and a message to the results of its frame.
    neighbours(chains, node) {
        const item = chains.item(node);
        const at = (index) => chains.lanes.all.map((lane) => ({lane, at: lane.before(index)})).filter((each) => each.at >= 0 && each.lane.at[each.at] === index);
        const same = at(item.index).filter((each) => each.lane !== node.lane);
        const frame = this.all.filter((each) => item.data.frame !== undefined && each.data.frame === item.data.frame && each.index !== item.index);
        const related = item.kind === 'message' ? frame.filter((each) => each.kind === 'entry' && each.data.of === 'result') :
            node.lane.group === 'result' ? frame.filter((each) => each.kind === 'message') : [];
        return [...same, ...related.slice(0, 8).flatMap((each) => at(each.index))];
    }
}

// The facts of one line, for the details.
function traceFacts(item) {
    const {data} = item;
    return facts([['Input', item.session], ['Line', item.line], ['Time', data.time ? data.time.text : null], ['Frame', data.frame], ['Camera', data.camera], ['Client', data.client],
        ['Tag', data.tag ? el('code', {}, data.tag) : null], ['Value', data.value === null ? 'unknown' : data.value], ['Parameters', (data.keys || []).join(', ')], ['Status', data.status],
        ['Declared', data.declared], ['Message', data.message], ['Fields', (data.fields || []).map((field) => `${field.name} ${field.value}`).join(', ')],
        ['Known from', data.derived ? 'the results: no line states it' : null], ['Text', data.text ? el('code', {}, data.text) : null], ['Cause', data.cause], ['Times', data.times > 1 ? data.times : null]]);
}
