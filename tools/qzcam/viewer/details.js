// SPDX-License-Identifier: Apache-2.0
// Details of the selected item of the timeline.

function pairsText(object) { return Object.entries(object || {}).map(([key, value]) => `${key}=${value}`).join(', '); }

function linesText(lines) {
    const numbers = [...new Set(Object.values(lines || {}))];
    return numbers.length ? `line ${numbers.join(', ')}` : null;
}

function offerText(offer) {
    if (!offer) return null;
    const values = offer.values ? valueText(offer.values).split(' ').join(', ') : `${offer.from} to ${offer.to}`;
    return `${values}${offer.cut ? ' ...' : ''}, says ${offer.by}`;
}

class Details {
    constructor(events, chains, choose) {
        Object.assign(this, {events, chains, choose});
        this.element = el('aside', {class: 'details', 'aria-live': 'polite', 'aria-label': 'Details'});
    }

    clear() {
        this.element.replaceChildren(el('h2', {}, 'Details'), el('p', {class: 'muted hint'}, 'Click a bar, or press Tab and the arrow keys, to see its line and its cause.'),
            el('table', {class: 'keys'}, el('tbody', {}, [['← →', 'change before, next change'], ['↑ ↓', 'lane above, below'], ['+ −', 'zoom'], ['0', 'everything'],
                ['Shift ← →', 'move'], ['Ctrl wheel', 'zoom at the pointer'], ['drag', 'move']].map(([key, text]) => el('tr', {}, el('th', {scope: 'row'}, el('kbd', {}, key)), el('td', {}, text))))));
    }

    show(node, chain, onlyChain) {
        const item = this.chains.item(node);
        this.element.replaceChildren(...this.heading(node, item), ...this.body(node, item), this.chainList(node, chain, onlyChain), this.surroundings(item));
    }

    heading(node, item) {
        const kinds = {parameter: 'Parameter', request: 'Request entry', result: 'Result entry', session: node.lane.label};
        return [el('p', {class: 'kind muted'}, `${kinds[node.lane.group]} · ${placeText(item) || item.session}`),
            el('h2', {}, node.lane.group === 'session' ? node.lane.texts[node.at] : node.lane.label)];
    }

    body(node, item) {
        if (this.events.neighbours) return [traceFacts(item)];
        const show = {parameter: () => this.parameter(node, item), request: () => this.entry(node, item), result: () => this.entry(node, item)}[node.lane.group];
        if (show) return show();
        const {data} = item;
        if (item.kind === 'expectation') {
            return [el('p', {}, badge(data.met ? 'good' : 'bad', data.met ? 'met' : 'failed')),
                facts([['Expected', el('code', {}, data.expected)], ['There is', el('code', {}, data.actual)], ['File', data.file], ['Line', data.line]])];
        }
        if (item.kind === 'callback') {
            return [facts([['Code', `0x${data.code.toString(16)}`], ['Kind', data.kind], ['Fields', data.fields.map((field) => (field.name ? `${field.name} ${field.value}` : field.value)).join(', ')],
                ['Numbers', valueText(data.numbers)], ['Made from', (data.from || []).map(shortName).join(', ')]])];
        }
        if (item.kind === 'log') return [facts([['Level', data.level], ['Tag', data.tag], ['Text', el('code', {}, data.text)]])];
        return [facts([['Line', item.line || null], ['File', item.session]])];
    }

    parameter(node, item) {
        const row = node.lane.texts[node.at] === null ? null : item.data.parameters.find((each) => each.key === node.lane.name);
        if (!row) return [el('p', {}, 'not set any more')];
        return [el('p', {}, badge(verdictTone(row.verdict), verdictWord(row.verdict)), row.reason ? ` ${row.reason}` : ''),
            facts([['Value', el('code', {}, row.value)], ['Set in', row.line ? `line ${row.line}` : null], ['Request', item.request], ['Holds', this.holds(node)],
                ['Offered', offerText(row.offered)], ['Becomes', row.overflow ? `${row.overflow.written} instead of ${row.overflow.number}` : null]]),
            ...row.entries.map((entry) => facts([['Entry', el('code', {}, shortName(entry.tag))], ['Type', entry.type], ['Values', valueText(entry.values)],
                ['Verdict', badge(verdictTone(entry.verdict), verdictWord(entry.verdict))], ['Reason', entry.reason]]))];
    }

    holds(node) {
        const from = this.chains.item(node).request;
        const next = node.lane.at[node.at + 1];
        const last = next === undefined ? this.events.requests.length : this.events.all[next].request - 1;
        return last > from ? `requests ${from} to ${last}` : null;
    }

    entry(node, item) {
        const entry = this.chains.entryOf(item, node.lane.name);
        if (!entry) return [el('p', {}, 'not there any more')];
        return [facts([['Tag', el('code', {}, entry.tag)], ['Type', `${entry.type}[${entry.values.length}]`], ['Values', el('code', {}, valueText(entry.values))],
            ['Change', entry.change], ['Before', entry.before ? el('code', {}, valueText(entry.before)) : null], ['Made by', pairsText(entry.from)], ['Set in', linesText(entry.lines)],
            ['Number', `0x${Number(entry.id).toString(16)}`]])];
    }

    chainList(start, chain, onlyChain) {
        if (chain.nodes.length < 2) return el('p', {class: 'muted'}, 'Nothing else belongs to it.');
        const order = {parameter: 0, request: 1, result: 2, session: 3};
        const nodes = [...chain.nodes].sort((a, b) => order[a.lane.group] - order[b.lane.group]);
        const box = el('input', {type: 'checkbox', id: 'only-chain'});
        box.checked = onlyChain.on;
        box.addEventListener('change', () => onlyChain.set(box.checked));
        return el('div', {class: 'chain'}, el('h3', {}, 'Cause and effect'),
            el('ol', {}, nodes.map((node) => el('li', {class: node === start ? 'here' : ''}, el('button', {type: 'button', onclick: () => this.choose(node)},
                el('span', {class: `mark ${node.lane.group}`, 'aria-hidden': 'true'}), el('code', {}, node.lane.group === 'session' ? node.lane.texts[node.at] : `${node.lane.label} = ${node.lane.texts[node.at]}`),
                el('small', {class: 'muted'}, placeText(this.chains.item(node))))))),
            el('label', {class: 'only'}, box, 'Show only these lanes'));
    }

    // All effects of the event's command, in order.
    sameMoment(item) {
        const {all} = this.events;
        const near = [];
        for (let i = item.index; i >= 0 && all[i].moment === item.moment && near.length < 200; --i) near.unshift(all[i]);
        for (let i = item.index + 1; i < all.length && all[i].moment === item.moment && near.length < 400; ++i) near.push(all[i]);
        return near;
    }

    surroundings(item) {
        const near = this.events.around ? this.events.around(item) : this.sameMoment(item);
        const texts = near.map((each) => [each, eventText(each)]).filter(([, text]) => text !== null);
        if (texts.length === 0) return '';
        return el('div', {class: 'near'}, el('h3', {}, item.line && !item.isTrace ? `All of line ${near[0].line || item.line}` : 'Around it'),
            el('ul', {class: 'plain'}, texts.map(([each, text]) => el('li', {class: `${eventTone(each)}${each === item ? ' here' : ''}`}, el('code', {}, text)))));
    }
}

function eventText({kind, data, isTrace, line}) {
    if (isTrace) return `line ${line} ${traceText({kind, data})}`;
    const texts = {
        session: () => data.file, command: () => `> ${data.text}`, log: () => `${data.level} ${data.tag}: ${data.text}`,
        request: () => `request: ${counted(data.entries.filter((entry) => entry.change !== 'gone').length, 'entry', 'entries')}`,
        result: () => `result: ${counted(data.entries.filter((entry) => entry.change !== 'gone').length, 'entry', 'entries')}`,
        verdicts: () => `${counted(data.parameters.length, 'parameter')}, ${data.parameters.filter((row) => row.verdict === 'written').length} written`,
        callback: () => `message ${data.name} ${data.fields.map((field) => (field.name ? `${field.name}=${field.value}` : field.value)).join(' ')}`,
        status: () => `${data.of}: ${data.answer ? 'answer' : 'status'} ${data.status}`, answer: () => `${data.question}: ${data.answer}`,
        expectation: () => `${data.met ? '✓' : '✗'} ${data.text}`, error: () => data.text, note: () => data.text,
        publish: () => `${counted(data.parameters.length, 'parameter')} published`, params: () => counted(data.parameters.length, 'parameter'),
    };
    return texts[kind] ? texts[kind]() : null;
}

function eventTone({kind, data, isTrace}) {
    if (isTrace) return TRACE_TONES[kind] || '';
    if (kind === 'expectation') return data.met ? 'good' : 'bad';
    if (kind === 'error') return 'bad';
    return kind === 'log' ? logTone(data) : '';
}
