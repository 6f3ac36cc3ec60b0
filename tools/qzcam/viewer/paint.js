// SPDX-License-Identifier: Apache-2.0
// Draws the visible lanes as SVG: one path for all changes of a lane that look alike, and a text where there is
// room. Changes that are too narrow become one block.

const ROW = 26;
const AXIS = 24;
const NARROWEST = 3;

// Converts units of the axis to pixels.
class Scale {
    constructor(units, width, left) { Object.assign(this, {units, width, left, from: 0, perUnit: 1}); }
    get fit() { return (this.width - this.left) / Math.max(1, this.units); }
    x(unit) { return this.left + (unit - this.from) * this.perUnit; }
    unit(x) { return this.from + (x - this.left) / this.perUnit; }

    limit() {
        this.perUnit = Math.min(Math.max(this.perUnit, this.fit), Math.max(this.fit, 400));
        const shown = (this.width - this.left) / this.perUnit;
        this.from = Math.min(Math.max(this.from, 0), Math.max(0, this.units - shown));
    }

    zoom(factor, x) {
        const unit = this.unit(x);
        this.perUnit *= factor;
        this.limit();
        this.from = unit - (x - this.left) / this.perUnit;
        this.limit();
    }
}

// Returns the pieces of a lane between two edges: {from, to, at} or, for a block, {from, to, block: true,
// tone}.
function piecesOf(lane, axis, scale) {
    const pieces = [];
    const unitAt = (at) => axis[lane.at[at]];
    const firstAbove = (unit) => {
        let low = 0;
        let high = lane.at.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (unitAt(middle) <= unit) low = middle + 1;
            else high = middle;
        }
        return low;
    };
    const right = scale.unit(scale.width);
    const end = (at) => (lane.marks ? unitAt(at) + 1 : at + 1 < lane.at.length ? unitAt(at + 1) : scale.units);
    let at = Math.max(0, firstAbove(scale.from) - 1);
    while (at < lane.at.length && unitAt(at) < right) {
        const from = scale.x(unitAt(at));
        const to = scale.x(end(at));
        if (to - from >= NARROWEST) {
            const next = lane.marks ? firstAbove(unitAt(at)) : at + 1;
            if (lane.texts[at] !== null) pieces.push(lane.marks ? worstMark(lane, at, next, from, to) : {from, to, at, tone: lane.tones[at]});
            at = next;
            continue;
        }
        const next = Math.max(at + 1, firstAbove(unitAt(at) + NARROWEST / scale.perUnit));
        addBlock(pieces, lane, at, next, from, Math.max(from + NARROWEST, lane.marks ? 0 : Math.min(from + 2 * NARROWEST, scale.x(end(next - 1)))));
        at = next;
    }
    return pieces;
}

// Several marks at one place are drawn as the worst of them.
function worstMark(lane, at, next, from, to) {
    const tone = worstBetween(lane, at, next);
    let worst = at;
    while (worst + 1 < next && lane.tones[worst] !== tone) ++worst;
    return {from, to, at: worst, tone, count: next - at};
}

function addBlock(pieces, lane, at, next, from, to) {
    if (next - at === 1 && lane.texts[at] === null) return;
    const tone = worstBetween(lane, at, next);
    const last = pieces[pieces.length - 1];
    if (last && last.block && last.tone === tone && from - last.to < 1) {
        last.to = to;
        last.count += next - at;
        return;
    }
    pieces.push({from, to, at, block: true, tone, count: next - at});
}

// The places of bad and doubtful changes are in separate sorted lists.
function worstBetween(lane, at, next) {
    if (!lane.places) {
        lane.places = {bad: [], warn: []};
        lane.tones.forEach((tone, index) => lane.places[tone] && lane.places[tone].push(index));
    }
    const has = (list) => upperBound(list, next - 1) > upperBound(list, at - 1);
    if (has(lane.places.bad)) return 'bad';
    return has(lane.places.warn) ? 'warn' : lane.tones[at];
}

function drawLane(lane, axis, scale, y) {
    const paths = new Map();
    const texts = [];
    for (const piece of piecesOf(lane, axis, scale)) {
        const from = Math.max(piece.from, scale.left);
        const to = Math.min(piece.to, scale.width);
        if (to <= from) continue;
        const tone = piece.block ? `${piece.tone} block` : piece.tone;
        const width = Math.max(1, to - from - (piece.block ? 0 : 1));
        paths.set(tone, `${paths.get(tone) || ''}M${round(from)} ${y + 4}h${round(width)}v${ROW - 8}h${round(-width)}z`);
        const room = Math.floor((width - 8) / 6.7);
        if (piece.block || room < 3) continue;
        const text = (piece.count > 1 ? `${piece.count}: ` : '') + visible(lane.texts[piece.at]);
        texts.push(svg('text', {class: `value ${piece.tone}`, x: round(from + 5), y: y + 17}, text.length > room ? `${text.slice(0, room - 1)}…` : text));
    }
    return [...[...paths].map(([tone, d]) => svg('path', {class: `piece ${tone}`, d})), ...texts];
}

const round = (number) => Math.round(number * 10) / 10;

// Draws ticks with enough room for their labels.
function drawAxis(scale, labelAt) {
    const least = 84 / scale.perUnit;
    const power = 10 ** Math.floor(Math.log10(Math.max(least, 1e-9)));
    const step = Math.max(scale.whole ? 1 : 0, [1, 2, 5, 10].map((each) => each * power).find((each) => each >= least));
    const nodes = [];
    let lines = '';
    for (let unit = Math.ceil(scale.from / step) * step; scale.x(unit) < scale.width - 20; unit += step) {
        const x = round(scale.x(unit));
        lines += `M${x} ${AXIS - 5}V4000`;
        nodes.push(svg('text', {class: 'tick', x: x + 3, y: 15}, labelAt(unit)));
    }
    return [svg('path', {class: 'grid', d: lines}), ...nodes];
}
