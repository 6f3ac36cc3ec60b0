// SPDX-License-Identifier: Apache-2.0
// The Timeline view: lanes over the commands, requests or time of a run, with zoom, panning and selection.

const AXES = {
    moment: ['by command', (item) => item.moment],
    request: ['by request', (item) => item.request],
    frame: ['by frame', (item) => item.frame],
    time: ['by time', (item) => item.time],
};

class TimelineView {
    constructor(events) {
        this.events = events;
        this.lanes = new Lanes(events);
        this.chains = new Chains(events, this.lanes);
        this.text = '';
        this.groups = LANE_GROUPS.map(([name, label]) => ({name, label, on: true, count: this.lanes.all.filter((lane) => lane.group === name).length}));
        this.node = null;
        this.onlyChain = {on: false, set: (on) => {
            this.onlyChain.on = on;
            this.chooseLanes();
        }};
        this.details = new Details(events, this.chains, (node) => this.choose(node));
        this.details.clear();
        this.draw = onceAFrame(() => this.drawNow());
        this.build();
        this.setAxis(events.all.some((item) => item.time !== undefined) ? 'time' : 'moment');
        this.chooseLanes();
    }

    build() {
        this.svg = svg('svg', {class: 'lanes', 'aria-hidden': 'true'});
        this.space = el('div', {class: 'lane-space'}, this.svg);
        this.scroller = el('div', {class: 'lane-scroller', tabindex: '0', role: 'application', 'aria-roledescription': 'timeline',
            'aria-label': 'Timeline: arrow keys go from change to change and from lane to lane'}, this.space);
        this.overview = svg('svg', {class: 'overview', 'aria-hidden': 'true'});
        this.tip = el('div', {class: 'tip', role: 'tooltip', hidden: true});
        this.summary = el('p', {class: 'muted', 'aria-live': 'polite'});
        const button = (label, text, act) => el('button', {type: 'button', 'aria-label': label, title: label, onclick: act}, text);
        const zoom = (factor) => () => this.zoom(factor);
        this.axisChoice = el('select', {'aria-label': 'Axis', onchange: () => this.setAxis(this.axisChoice.value)},
            this.axes().map((name) => el('option', {value: name}, name === 'moment' && this.events.readInto ? 'in order' : AXES[name][0])));
        this.element = el('section', {class: 'timeline'}, this.findings(), (this.events.notes || []).map((note) => el('p', {class: 'muted note'}, `Note: ${note}`)),
            el('div', {class: 'tools'}, searchField('Search lanes and values', (text) => {
                this.text = text;
                this.chooseLanes();
            }), toggles('Lanes', this.groups, () => this.chooseLanes()), el('div', {class: 'zoom', role: 'group', 'aria-label': 'Zoom'}, this.axisChoice,
                button('Zoom out', '−', zoom(1 / 1.6)), button('Zoom in', '+', zoom(1.6)), button('Show everything', 'All', () => this.zoom(0)))),
            this.summary,
            el('div', {class: 'columns'}, el('div', {class: 'middle'}, this.overview, this.scroller, this.tip), this.details.element));
        this.listen();
    }

    axes() {
        const names = Object.keys(AXES).filter((name) => this.events.all.some((item) => AXES[name][1](item) > 0));
        return this.events.axes ? this.events.axes(names) : names;
    }

    // The findings, worst first.
    findings() {
        const found = [...this.events.findings].sort((a, b) => (a.tone === 'bad' ? 0 : 1) - (b.tone === 'bad' ? 0 : 1));
        if (found.length === 0 && this.events.readInto) return null;
        if (found.length === 0) return el('p', {class: 'findings none'}, badge('good', 'nothing failed'), ' Every parameter was written as it was set, and no expectation failed.');
        const rowHeight = innerWidth > 640 ? 32 : 54;  // the reason has a line of its own on a narrow screen
        const list = new VirtualList('Findings', rowHeight, (row) => [badge(row.tone, row.what), el('code', {class: 'name', title: row.name}, row.name),
            el('span', {class: 'what', title: row.why}, row.why, row.times > 1 ? el('span', {class: 'muted'}, ` in ${row.times.toLocaleString('en')} ${row.unit || 'requests'}`) : null),
            el('span', {class: 'muted place'}, row.line ? `${placeText({...row.item, line: 0})}, set in line ${row.line}`.replace(/^, /, '') : placeText(row.item))],
        (row) => this.chooseFinding(row));
        list.element.style.height = `${Math.min(found.length, 5) * rowHeight + 2}px`;
        list.show(found);
        return el('div', {class: 'findings'}, el('h2', {}, 'Parameters not written as set, and failed expectations', el('span', {class: 'count'}, found.length.toLocaleString('en'))), list.element);
    }

    chooseFinding(finding) {
        const id = finding.key !== undefined ? `parameter:${finding.key}` : 'session:expectations';
        const node = this.chains.node(id, finding.item.index);
        if (node) this.choose(node);
    }

    setAxis(name) {
        this.axisName = name;
        this.axisChoice.value = name;
        const place = AXES[name][1];
        this.axis = new Float64Array(this.events.all.length);
        let last = 0;
        const first = this.events.all.map(place).find((value) => value !== undefined) || 0;
        this.events.all.forEach((item, index) => {
            const value = place(item);
            if (value !== undefined) last = Math.max(last, value - (name === 'time' ? first : 0));
            this.axis[index] = last;
        });
        this.first = first;
        this.labels = null;
        this.scale = new Scale(last + (name === 'time' ? Math.max(last * 0.01, 1) : 1), 0, 0);
        this.scale.whole = name !== 'time';
        this.scale.perUnit = 0;
        this.drawNow();
        this.drawOverview();
    }

    labelAt(unit) {
        if (this.axisName === 'time') return `${(unit / 1000).toFixed(this.scale.perUnit > 1 ? 3 : 1)} s`;
        if (this.axisName !== 'moment') return `${this.axisName} ${unit}`;
        if (!this.labels) {
            this.labels = [];
            for (const item of this.events.all) if ((item.kind === 'command' || this.events.readInto) && this.labels[item.moment] === undefined) this.labels[item.moment] = item.line ? `line ${item.line}` : 'end';
        }
        return this.labels[unit] || '';
    }

    chooseLanes() {
        const on = new Set(this.groups.filter((each) => each.on).map((each) => each.name));
        const chain = this.onlyChain.on && this.node ? new Set(this.chain.nodes.map((node) => node.lane)) : null;
        const matches = (lane) => this.text === '' || `${lane.name} ${lane.label}`.toLowerCase().includes(this.text) ||
            lane.texts.some((text) => text !== null && text.toLowerCase().includes(this.text));
        this.shownLanes = this.lanes.all.filter((lane) => on.has(lane.group) && (!chain || chain.has(lane)) && matches(lane));
        this.summary.textContent = `${this.shownLanes.length.toLocaleString('en')} of ${counted(this.lanes.all.length, 'lane')}${this.events.readInto ? '' : `, ${counted(this.events.requests.length, 'request')}`}`;
        this.drawNow();
    }

    shown() {
        this.draw();
        this.drawOverview();
    }

    measure(paper) {
        const width = paper || this.scroller.clientWidth || 800;
        const left = width < 560 ? 104 : width < 1000 ? 170 : 230;
        const showsAll = this.scale.perUnit <= this.scale.fit * 1.001;
        Object.assign(this.scale, {width, left});
        if (showsAll) this.scale.perUnit = this.scale.fit;
        this.scale.limit();
    }

    drawNow() {
        if (!this.shownLanes) return;
        if (paper.on) return this.drawPaper();
        this.measure();
        this.space.replaceChildren(this.svg);
        this.space.style.height = `${AXIS + this.shownLanes.length * ROW}px`;
        const {scrollTop, clientHeight} = this.scroller;
        this.drawLanes(this.svg, scrollTop, clientHeight);
        this.drawWindow();
    }

    // On paper every sheet has an axis, and no lane is split.
    drawPaper() {
        const [width, lanes, most] = [700, 28, 560];
        this.measure(width);
        const sheets = [];
        for (let first = 0; first < Math.min(this.shownLanes.length, most); first += lanes) {
            const sheet = svg('svg', {class: 'lanes sheet-of-lanes'});
            this.drawLanes(sheet, first * ROW, AXIS + Math.min(lanes, this.shownLanes.length - first) * ROW);
            sheets.push(sheet);
        }
        if (this.shownLanes.length > most) sheets.push(el('p', {class: 'muted'}, `${this.shownLanes.length - most} more lanes are not printed: search or filter to choose lanes.`));
        this.space.replaceChildren(...sheets);
    }

    drawLanes(drawing, top, height) {
        const {scale} = this;
        drawing.setAttribute('width', scale.width);
        drawing.setAttribute('height', height);
        const first = Math.floor(top / ROW);
        const last = Math.min(this.shownLanes.length, Math.ceil((top + height - AXIS) / ROW) + (height === this.scroller.clientHeight ? 1 : 0));
        const nodes = drawAxis(scale, (unit) => this.labelAt(unit));
        for (let i = first; i < last; ++i) nodes.push(...this.row(i, AXIS + i * ROW - top));
        nodes.push(...this.drawChain(top));
        nodes.push(svg('rect', {class: 'cover', x: 0, y: 0, width: scale.width, height: AXIS}), ...drawAxis(scale, (unit) => this.labelAt(unit)).slice(1));
        drawing.replaceChildren(...nodes);
    }

    row(index, y) {
        const lane = this.shownLanes[index];
        const before = this.shownLanes[index - 1];
        const room = Math.floor((this.scale.left - 22) / 6.9);
        const label = lane.label.length > room ? `${lane.label.slice(0, room - 1)}…` : lane.label;
        return [svg('rect', {class: `lane${index % 2 ? ' odd' : ''}${this.node && this.node.lane === lane ? ' chosen' : ''}`, x: 0, y, width: this.scale.width, height: ROW}),
            before && before.group !== lane.group ? svg('path', {class: 'divider', d: `M0 ${y}H${this.scale.width}`}) : null,
            svg('rect', {class: `mark ${lane.group} ${lane.worst}`, x: 6, y: y + 8, width: 6, height: ROW - 16, rx: 2}),
            svg('text', {class: `label ${lane.worst}`, x: 18, y: y + 17}, visible(label), svg('title', {}, visible(lane.name))),
            ...drawLane(lane, this.axis, this.scale, y)].filter(Boolean);
    }

    boxOf(node, top) {
        const index = this.shownLanes.indexOf(node.lane);
        if (index < 0) return null;
        const unit = this.axis[node.lane.at[node.at]];
        const next = node.lane.at[node.at + 1];
        const end = node.lane.marks ? unit + 1 : next === undefined ? this.scale.units : this.axis[next];
        const x = this.scale.x(unit);
        return {x, y: AXIS + index * ROW - top + 3, width: Math.max(4, this.scale.x(end) - x), height: ROW - 6};
    }

    drawChain(top) {
        if (!this.node) return [];
        const clip = (x) => Math.min(Math.max(x, this.scale.left), this.scale.width - 2);
        const curve = ({from, to}) => {
            const [a, b] = [this.boxOf(from, top), this.boxOf(to, top)];
            if (!a || !b) return null;
            const [x1, x2] = [clip(a.x + 3), clip(b.x + 3)];
            const [y1, y2] = a.y < b.y ? [a.y + a.height, b.y] : [a.y, b.y + b.height];
            return svg('path', {class: 'link', d: `M${round(x1)} ${y1}C${round(x1)} ${(y1 + y2) / 2} ${round(x2)} ${(y1 + y2) / 2} ${round(x2)} ${y2}`});
        };
        const frame = (node) => {
            const box = this.boxOf(node, top);
            if (!box) return null;
            const [left, right] = [clip(box.x), clip(box.x + box.width)];
            return svg('rect', {class: `frame${node.lane === this.node.lane && node.at === this.node.at ? ' chosen' : ''}`, x: left, y: box.y, width: Math.max(3, right - left), height: box.height, rx: 3});
        };
        return [...this.chain.links.map(curve), ...this.chain.nodes.map(frame)].filter(Boolean);
    }

    choose(node) {
        this.node = node;
        this.chain = this.chains.of(node);
        if (this.onlyChain.on || !this.shownLanes.includes(node.lane)) {
            for (const group of this.groups) group.on = group.on || group.name === node.lane.group;
            this.chooseLanes();
        }
        this.reveal(node);
        this.details.show(node, this.chain, this.onlyChain);
        this.drawNow();
    }

    reveal(node) {
        const index = this.shownLanes.indexOf(node.lane);
        const y = index * ROW;
        if (index >= 0 && y < this.scroller.scrollTop) this.scroller.scrollTop = y;
        if (y + ROW + AXIS > this.scroller.scrollTop + this.scroller.clientHeight) this.scroller.scrollTop = y + ROW + AXIS - this.scroller.clientHeight;
        const unit = this.axis[node.lane.at[node.at]];
        const shown = (this.scale.width - this.scale.left) / this.scale.perUnit;
        if (unit < this.scale.from || unit > this.scale.from + shown * 0.95) this.scale.from = unit - shown / 3;
        this.scale.limit();
    }
}
