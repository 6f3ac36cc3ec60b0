// SPDX-License-Identifier: Apache-2.0
// Reads the events of a phone for the timeline: facts from logs and dumps instead of the events of a session.

// The columns of the parameter table that are findings, worst first.
const TRACE_FAULTS = {refused: ['bad', 'refused'], overflows: ['bad', 'overflows'], notOffered: ['bad', 'not offered'], undeclared: ['warn', 'tag not declared'], gated: ['warn', 'gate closed'], fallback: ['warn', 'fallback written']};
// Columns that count verdicts, with the words of the verdicts.
const TRACE_VERDICTS = {overflows: 'overflows', notOffered: 'not-offered', fallback: 'fallback'};
const TRACE_TONES = {refused: 'bad', undeclared: 'warn', gated: 'warn', lost: 'warn', logged: 'good'};

const verdictOf = (item, key) => (item.data.verdicts || []).find((each) => each.key === key);

// The text that the application set, if the line has it.
function parameterText(item, key) {
    const field = item.kind === 'message' ? undefined : (item.data.fields || []).find((each) => each.name === key);
    return field ? field.value : undefined;
}

// Returns milliseconds of a clock. A date has no year, and only differences matter.
function clockTime(time) {
    if (!time) return undefined;
    if (time.nanoseconds !== undefined) return Number(time.nanoseconds) / 1e6;
    const parts = time.text.match(/(?:(\d\d)-(\d\d) )?(\d\d):(\d\d):(\d\d)(\.\d+)?/);
    return parts ? Date.UTC(2000, Number(parts[1] || 1) - 1, parts[2] || 1, parts[3], parts[4], parts[5]) + Number(parts[6] || 0) * 1000 : undefined;
}

class TraceEvents {
    constructor(list) {
        Object.assign(this, {all: [], devices: [], requests: [], findings: [], inputs: [], groups: [], notes: []});
        const clocks = new Set(list.filter((data) => data.time && data.line !== undefined).map((data) => data.time.clock));
        this.hasClock = clocks.size === 1;  // several clocks cannot share an axis
        for (const data of list) {
            if (data.event === 'input') this.inputs[data.input] = data.name;
            else if (data.event === 'group') this.groups.push(data.title);
            else if (data.event === 'note') this.notes.push(data.text);
            else if (data.line !== undefined) this.add(data);
        }
        this.parameters = list.filter((data) => data.event === 'parameter');
        this.neverSeen = list.filter((data) => data.event === 'never-seen').flatMap((data) => data.keys);
        for (const row of this.parameters) this.find(row);
        this.moments = this.all.length;
        this.findNextFrames();
    }

    // An item without a frame comes after the previous frame of its group.
    add(data) {
        const last = this.all[this.all.length - 1];
        if (data.tags) this.array = {index: this.all.length, text: data.text};
        const isOfArray = data.event === 'entry' && this.array && (data.cause || '').endsWith(this.array.text);
        const before = last && last.group === this.groups.length ? last : null;
        this.all.push({index: this.all.length, kind: data.event, data, line: data.line, moment: this.all.length, session: this.inputs[data.input] || '', group: this.groups.length,
            frame: data.frame === undefined ? (before ? before.frame : undefined) : data.frame, hasFrame: data.frame !== undefined, request: 0, isTrace: true, array: isOfArray ? this.array.index : undefined,
            time: this.hasClock ? clockTime(data.time) : undefined});
    }

    findNextFrames() {
        let next;
        for (let i = this.all.length - 1; i >= 0; --i) {
            const item = this.all[i];
            if (i + 1 < this.all.length && this.all[i + 1].group !== item.group) next = undefined;
            if (item.hasFrame) next = item.frame;
            item.nextFrame = next;
        }
    }

    // Frames of several groups do not share an axis.
    axes(names) { return names.filter((name) => name !== 'frame' || this.groups.length < 2); }

    // The findings in the table by parameter.
    find(row) {
        for (const [kind, [tone, what]] of Object.entries(TRACE_FAULTS)) {
            const count = row[kind];
            if (!count || count.times === 0) continue;
            const item = this.all.find((each) => this.isAbout(each, kind, row.key)) || this.all.find((each) => count.lines.includes(each.line));
            if (!item) continue;
            const verdict = verdictOf(item, row.key);
            const text = verdict ? verdict.value : parameterText(item, row.key);
            const why = kind === 'refused' ? refusedText(row, item.data, this.writtenType(item)) : verdict ? verdict.reason : item.data.cause || '';
            this.findings.push({tone, item, what, name: text ? `${row.key}=${text}` : row.key, why, key: row.key, times: count.times, unit: 'lines'});
        }
    }

    isAbout(item, kind, key) {
        if (TRACE_VERDICTS[kind]) return (item.data.verdicts || []).some((each) => each.key === key && each.verdict === TRACE_VERDICTS[kind]);
        return item.kind === kind && (item.data.keys || []).includes(key);
    }

    // The platform's line before a refusal has the type that was to be written.
    writtenType(item) {
        const lines = this.all.slice(Math.max(0, item.index - 3), item.index).filter((each) => each.data.tag === item.data.tag && each.kind === 'line');
        const match = lines.map((each) => /update of (\w+) refused/.exec(each.data.text || '')).find(Boolean);
        return match ? match[1] : '';
    }

    badges() {
        const of = (kind) => this.all.filter((item) => item.kind === kind).length;
        const countOf = (verdict) => this.all.filter((item) => (item.data.verdicts || []).some((each) => each.verdict === verdict)).length;
        const found = [['bad', of('refused'), 'refused'], ['bad', countOf('not-offered'), 'not offered'], ['warn', of('undeclared'), 'not declared'], ['warn', countOf('fallback'), 'fallback written']];
        return [badge('plain', counted(of('entry'), 'entry', 'entries')), badge('plain', counted(of('message'), 'message')),
            ...found.filter(([, count]) => count > 0).map(([tone, count, what]) => badge(tone, `${count.toLocaleString('en')} ${what}`))];
    }

    // Fills the lanes instead of those of a session. Another group begins without values.
    readInto(lanes, item) {
        const {kind, data} = item;
        if (item.index > 0 && this.all[item.index - 1].group !== item.group) lanes.endAll(item.index);
        if (this.groups.length > 1) this.readGroup(lanes, item);
        const text = data.removed ? null : data.value === undefined || data.value === null ? 'unknown' : String(data.value);
        const side = data.of === 'result' ? 'result' : 'request';
        const tone = TRACE_TONES[kind] || side;
        if (data.tag && ['entry', 'logged', 'refused'].includes(kind)) lanes.lane(side, data.tag, shortName(data.tag)).push(item.index, kind === 'refused' ? `refused: ${text}` : text, kind === 'entry' ? side : tone);
        for (const key of kind === 'entry' ? [] : data.keys || []) {
            const lane = lanes.lane('parameter', key, key);
            const value = parameterText(item, key);
            lane.marks = true;
            lane.push(item.index, value !== undefined ? value : kind === 'logged' ? `${text}` : kind, verdictOf(item, key) ? verdictTone(verdictOf(item, key).verdict) : tone === side ? 'info' : tone);
        }
        if (kind === 'message') lanes.mark('messages', item, data.message, data.derived ? 'plain' : 'info');
        else if (['request', 'result', 'list', 'parameters'].includes(kind)) lanes.mark('commands', item, data.text || kind, 'info');
        else if (['line', 'lost'].includes(kind) || !data.tag) lanes.mark('log', item, data.text || kind, TRACE_TONES[kind] || 'plain');
    }

    readGroup(lanes, item) {
        const lane = lanes.lane('session', 'evidence', 'Evidence');
        if (!lane.active) lane.push(item.index, this.groups[item.group - 1] || '', 'plain');
    }

    // The facts before and after the selected one, like the lines of a command in a run.
    around(item) { return this.all.slice(Math.max(0, item.index - 5), item.index + 6).filter((each) => each.group === item.group); }

    // Connects the lanes of one line, and a message with the results of its frame.
    neighbours(chains, node) {
        const item = chains.item(node);
        const at = (index) => chains.lanes.all.map((lane) => ({lane, at: lane.before(index)})).filter((each) => each.at >= 0 && each.lane.at[each.at] === index);
        const same = at(item.index).filter((each) => each.lane !== node.lane);
        const frame = this.all.filter((each) => item.data.frame !== undefined && each.data.frame === item.data.frame && each.group === item.group && each.index !== item.index);
        const related = item.kind === 'message' ? frame.filter((each) => each.kind === 'entry' && each.data.of === 'result') :
            node.lane.group === 'result' ? frame.filter((each) => each.kind === 'message') : [];
        return [...same, ...related.slice(0, 8).flatMap((each) => at(each.index))];
    }
}

// Returns the frame of an item, or the frames before and after it; empty if they are unknown.
function frameText({hasFrame, frame, nextFrame}) {
    if (hasFrame || (frame !== undefined && frame === nextFrame)) return `frame ${frame}`;
    if (frame !== undefined && nextFrame !== undefined) return `between frames ${frame} and ${nextFrame}`;
    return frame !== undefined ? `after frame ${frame}` : nextFrame !== undefined ? `before frame ${nextFrame}` : '';
}

// Returns the facts of one line, for the details.
function traceFacts(item) {
    const {data} = item;
    return facts([['Input', item.session], ['Line', item.line], ['Time', data.time ? data.time.text : null], ['Frame', item.hasFrame ? data.frame : frameText(item) || 'unknown: no frame number belongs to this line'], ['Camera', data.camera], ['Client', data.client],
        ['Tag', data.tag ? el('code', {}, data.tag) : null], ['Value', data.value === null ? 'unknown' : data.value], ['Parameters', (data.keys || []).join(', ')], ['Status', data.status],
        ['Declared', data.declared], ['Message', data.message], ['Fields', (data.fields || []).map((field) => `${field.name} ${field.value}`).join(', ')],
        ['Known from', data.derived ? 'the results: no line states it' : null], ['Text', data.text ? el('code', {}, data.text) : null], ['Cause', data.cause],
        ...(data.verdicts || []).map((row) => [row.value ? `${row.key}=${row.value}` : row.key, el('span', {}, badge(verdictTone(row.verdict), verdictWord(row.verdict)), ` ${row.reason || ''}`)]), ['Times', data.times > 1 ? data.times : null]]);
}

function refusedText(row, {tag, value}, written) {
    const why = [row.declared.length ? `the device declares ${[row.declared].flat().join(', ')}` : '', written ? `the library writes ${written}` : '', row.statuses.length ? `status ${row.statuses.join(', ')}` : 'status unknown'];
    return `${shortName(tag || 'its entry')} could not be set${value ? ` to ${value}` : ''}: ${why.filter(Boolean).join(', ')}`;
}

function traceText({kind, data}) {
    const value = data.removed ? 'removed' : data.value === null ? 'unknown' : data.value;
    const texts = {
        entry: () => `${data.of} ${shortName(data.tag)}: ${value}`, logged: () => `${shortName(data.tag)}: ${value}, to be written`, undeclared: () => `${shortName(data.tag)}: tag not declared`,
        refused: () => `${shortName(data.tag)}: ${value} refused, status ${data.status === undefined ? 'unknown' : data.status}`, gated: () => `${(data.keys || []).join(', ')}: gate closed: ${data.cause}`,
        message: () => `message ${data.message} ${(data.fields || []).map((field) => (field.name ? `${field.name}=${field.value}` : field.value)).join(' ')}`,
    };
    return texts[kind] ? texts[kind]() : data.text || kind;
}

// The outcome of each parameter, and the parameters that no line contains.
function outcomesView(events) {
    const words = {...TRACE_FAULTS, written: ['good', 'written'], logged: ['good', 'logged'], set: ['info', 'set']};
    const rows = events.parameters.map((row) => {
        const outcomes = Object.keys(words).filter((outcome) => row[outcome] && row[outcome].times > 0);
        const lines = (outcome) => `${counted(row[outcome].times, 'line')}: ${row[outcome].lines.slice(0, 40).join(', ')}${row[outcome].lines.length > 40 ? ' ...' : ''}`;
        return {group: 0, name: row.key, badge: words[outcomes[0]] || ['plain', 'named'], value: outcomes.map((outcome) => `${words[outcome][1]} ${row[outcome].times}`).join(', '),
            facts: () => [...outcomes.map((outcome) => [words[outcome][1], lines(outcome)]), ['Status', row.statuses.join(', ')], ['Declared', [row.declared].flat().join(', ')]]};
    });
    rows.push(...events.neverSeen.map((name) => ({group: 1, name, badge: ['plain', 'never seen'], facts: () => [['Seen', 'no line names it']]})));
    return new BrowseView({label: 'Parameters', many: ['parameter'], what: 'parameters and what became of them', rows, groups: present([{id: 0, label: 'Named by lines'}, {id: 1, label: 'Never seen'}], rows)});
}
