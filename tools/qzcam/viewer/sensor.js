// SPDX-License-Identifier: Apache-2.0
// The Sensor view: what a request says about places on the sensor, to scale.

const LAYERS = [
    {id: 'active', label: 'Active array', system: 'pixels of the sensor'},
    {id: 'crop', label: 'Crop by zoom', system: 'pixels of the active array, from the zoom ratio'},
    {id: 'focus', label: 'Focus areas', system: '-1000 to 1000 across the crop by zoom'},
    {id: 'metering', label: 'Metering areas', system: '-1000 to 1000 across the crop by zoom'},
    {id: 'face', label: 'Faces', system: 'pixels of the active array'},
    {id: 'tracking', label: 'Tracking', system: 'read as -1000 to 1000 across the crop by zoom'},
    {id: 'mirror', label: 'Mirror point', system: 'read as x and y in 16 bits each, pixels of the active array'},
    {id: 'sub', label: 'Secondary sensor', system: 'pixels of its own array'},
];

class SensorView {
    constructor(events) {
        this.events = events;
        this.number = Math.max(0, events.requests.length - 1);
        this.off = new Set();
        const count = events.requests.length;
        this.slider = el('input', {type: 'range', min: 1, max: Math.max(1, count), value: this.number + 1, step: 1,
            'aria-label': 'Request', disabled: count < 2});
        this.slider.addEventListener('input', () => this.show(Number(this.slider.value) - 1));
        this.place = el('output', {class: 'place', 'aria-live': 'polite'});
        this.picture = el('div', {class: 'picture'});
        this.legend = el('ul', {class: 'legend'});
        const step = (by, text, label) => el('button', {type: 'button', 'aria-label': label, onclick: () => this.show(this.number + by)}, text);
        this.element = el('section', {class: 'sensor'},
            el('div', {class: 'slider'}, step(-1, '◀', 'Request before'), this.slider, step(1, '▶', 'Next request'), this.place),
            el('div', {class: 'columns'}, this.picture, el('aside', {'aria-label': 'Legend'}, this.legend)));
        this.draw = onceAFrame(() => this.drawNow());
        new ResizeObserver(this.draw).observe(this.picture);
        this.show(this.firstWithAreas());
    }

    // A request that shows something, if there is one.
    firstWithAreas() {
        const names = ['qz-focus-value', 'qz-metering-value', 'qz-zoom-in', 'android.scaler.cropRegion', 'mirrorPoint',
            'qz-device-target-tracking-coordinate'];
        const tells = (at) => this.events.all[at].data.entries.some((entry) => names.some((name) => endsWithName(entry.tag, name)));
        const found = this.events.requests.slice(0, 2000).findIndex(tells);
        return found < 0 ? 0 : found;
    }

    show(number) {
        this.number = Math.min(Math.max(number, 0), Math.max(0, this.events.requests.length - 1));
        this.slider.value = this.number + 1;
        this.draw();
    }

    drawNow() {
        const scene = new Scene(this.events, this.number);
        const count = this.events.requests.length;
        const where = scene.item ? `Request ${(this.number + 1).toLocaleString('en')} of ${count.toLocaleString('en')}${scene.item.line ? `, line ${scene.item.line}` : ''}` : 'No request';
        this.place.textContent = where;
        this.slider.setAttribute('aria-valuetext', where);
        const shapes = this.shapesOf(scene);
        this.picture.replaceChildren(...this.pictures(scene, shapes));
        this.legend.replaceChildren(...LAYERS.map((layer) => this.legendItem(layer, scene, shapes)));
    }

    shapesOf(scene) {
        const area = (shape) => ({...shape, label: `weight ${shape.weight}${shape.sent ? '' : ', not sent'}`});
        const shapes = {active: [], crop: [], sub: []};
        shapes.active.push({...scene.active, text: `${scene.active.width} × ${scene.active.height}${scene.stated ? '' : ' (assumed: the device does not state it)'}`});
        if (scene.entry('qz-zoom-in')) shapes.crop.push({...scene.crop, text: `${scene.ratio} ×: ${rectangleText(scene.crop)}`});
        shapes.focus = scene.areas('focus-areas', 'qz-focus-value').map(area);
        shapes.metering = scene.areas('metering-areas', 'qz-metering-value').map(area);
        shapes.face = scene.faces();
        shapes.tracking = [scene.tracking()].filter(Boolean);
        shapes.mirror = [scene.mirror()].filter(Boolean);
        const sub = scene.subCrop();
        if (scene.sub) shapes.sub.push({...scene.sub, text: `${scene.sub.width} × ${scene.sub.height}`});
        if (sub) shapes.sub.push({...sub, inner: true, text: `crop ${rectangleText(sub)}`});
        return shapes;
    }

    legendItem(layer, scene, shapes) {
        const found = shapes[layer.id];
        const box = el('input', {type: 'checkbox', id: `layer-${layer.id}`, disabled: found.length === 0});
        box.checked = !this.off.has(layer.id);
        box.addEventListener('change', () => {
            if (box.checked) this.off.delete(layer.id);
            else this.off.add(layer.id);
            this.draw();
        });
        const texts = found.map((shape) => el('li', {}, shape.text, shape.label ? el('span', {class: 'muted'}, ` ${shape.label}`) : null,
            shape.to ? el('span', {class: 'muted'}, ` moved by ${shape.to.text}`) : null));
        return el('li', {class: found.length ? '' : 'absent'}, box, el('span', {class: `swatch ${layer.id}`, 'aria-hidden': 'true'}),
            el('label', {for: `layer-${layer.id}`}, layer.label, el('small', {}, found.length ? layer.system : 'not in this request')),
            found.length ? el('ul', {class: 'values'}, texts) : null);
    }

    seen(shapes, id) { return this.off.has(id) ? [] : shapes[id]; }

    pictures(scene, shapes) {
        const over = ['crop', 'focus', 'metering', 'face', 'tracking', 'mirror'];
        const main = over.flatMap((id) => this.seen(shapes, id).map((shape) => ({...shape, id})));
        const room = {width: Math.max(240, this.picture.clientWidth - 26), height: Math.max(220, innerHeight * 0.6)};
        const inner = shapes.sub.filter((shape) => shape.inner).map((shape) => ({...shape, id: 'sub'}));
        const array = scene.sub || inner[0];
        const isTwo = inner.length > 0 && !this.off.has('sub');
        const pixels = scaleFor(room, boundsOf(scene.active, main), isTwo ? boundsOf(array, inner) : null);
        const figures = [this.figure('Active array', scene.active, main, !this.off.has('active'), pixels)];
        if (isTwo) {
            figures.push(this.figure('Secondary sensor', array, inner, true, pixels));
        }
        return figures;
    }

    // All pictures have one scale: so many pixels of the screen for one of the sensor.
    figure(title, array, shapes, outline, pixels) {
        const box = boundsOf(array, shapes);
        const unit = 1 / pixels;
        const drawing = svg('svg', {width: Math.round(box.width * pixels), viewBox: `${box.left} ${box.top} ${box.width} ${box.height}`, role: 'img',
            'aria-label': `${title}: ${[rectangleText(array), ...shapes.map((shape) => `${shape.id} ${shape.text}`)].join('; ')}`});
        if (outline) drawing.append(svg('rect', {class: 'array', x: array.left, y: array.top, width: array.width, height: array.height}));
        if (outline) drawing.append(...ticks(array, unit));
        const labels = [];
        for (const shape of shapes) drawing.append(...drawShape(shape, unit, labels));
        drawing.append(...placeLabels(labels, shapes, unit));
        return el('figure', {}, drawing,
            el('figcaption', {}, `${title}, ${array.width} × ${array.height}`));
    }
}

const rectangleText = (box) => [box.left, box.top, box.width, box.height].map((number) => Math.round(number * 10) / 10).join(', ');

// Pixels of the screen for one of the sensor, so that one or two pictures fit beside or below each other.
function scaleFor(room, one, two) {
    const fit = (width, height) => Math.min(room.width / width, room.height / height);
    if (!two) return fit(one.width, one.height);
    const beside = Math.min((room.width - 40) / (one.width + two.width), room.height / Math.max(one.height, two.height));
    const below = Math.min(room.width / Math.max(one.width, two.width), (room.height - 60) / (one.height + two.height));
    return Math.max(beside, below);
}

// The array with a margin, and what lies outside it as far as three arrays away.
function boundsOf(array, shapes) {
    const margin = array.width * 0.06;
    let [left, top, right, bottom] = [array.left, array.top, array.left + array.width, array.top + array.height];
    const take = (x, y) => {
        left = Math.max(array.left - 3 * array.width, Math.min(left, x));
        right = Math.min(array.left + 4 * array.width, Math.max(right, x));
        top = Math.max(array.top - 3 * array.height, Math.min(top, y));
        bottom = Math.min(array.top + 4 * array.height, Math.max(bottom, y));
    };
    for (const shape of shapes) {
        if (shape.x !== undefined) take(shape.x, shape.y);
        else {
            take(shape.left, shape.top);
            take(shape.left + shape.width, shape.top + shape.height);
        }
        if (shape.to) take(shape.to.x, shape.to.y);
    }
    return {left: left - margin, top: top - margin, width: right - left + 2 * margin, height: bottom - top + 2 * margin};
}

function ticks(array, unit) {
    const size = 11 * unit;
    const text = (x, y, anchor, value) => svg('text', {class: 'tick', x, y, 'text-anchor': anchor, style: `font-size:${size}px`}, value);
    return [text(array.left, array.top - 6 * unit, 'start', `${array.left}, ${array.top}`),
        text(array.left + array.width, array.top + array.height + 16 * unit, 'end', `${array.left + array.width}, ${array.top + array.height}`)];
}

// The shape without its label, which is put down for later.
function drawShape(shape, unit, labels) {
    if (shape.x !== undefined) return drawPoint(shape, unit, labels);
    const [left, right] = [shape.left, shape.left + shape.width].sort((a, b) => a - b);
    const [top, bottom] = [shape.top, shape.top + shape.height].sort((a, b) => a - b);
    const name = {crop: 'crop by zoom', sub: 'crop', focus: 'focus', metering: 'metering'}[shape.id];
    const inside = shape.id === 'crop' || shape.id === 'sub';
    const above = [left, top - 5 * unit];
    const below = [left, bottom + 14 * unit];
    const within = [left + 5 * unit, bottom - 6 * unit];
    const places = inside ? [within, [left + 5 * unit, top + 15 * unit], below] : shape.id === 'metering' ? [below, above, within] : [above, below, within];
    labels.push({id: shape.id, text: [name, shape.label].filter(Boolean).join(', '), places});
    return [svg('rect', {class: `shape ${shape.id}${shape.sent === false ? ' unsent' : ''}`, x: left, y: top, width: Math.max(right - left, unit),
        height: Math.max(bottom - top, unit)}, svg('title', {}, `${shape.id}: ${shape.text}`))];
}

function drawPoint(shape, unit, labels) {
    const r = 9 * unit;
    const cross = (x, y) => `M${x - r} ${y}h${2 * r}M${x} ${y - r}v${2 * r}`;
    const right = shape.x + 13 * unit;
    labels.push({id: shape.id, text: shape.id === 'mirror' ? 'mirror point' : 'target',
        places: [[right, shape.y - 6 * unit], [right, shape.y + 15 * unit], [shape.x - 10 * unit, shape.y + 24 * unit], [shape.x - 10 * unit, shape.y - 16 * unit]]});
    const nodes = [svg('path', {class: `shape ${shape.id}`, d: cross(shape.x, shape.y)}, svg('title', {}, `${shape.id}: ${shape.text}`)),
        svg('circle', {class: `shape ${shape.id}`, cx: shape.x, cy: shape.y, r: r * 0.6})];
    if (shape.to) nodes.push(svg('path', {class: 'shape tracking', d: `M${shape.x} ${shape.y}L${shape.to.x} ${shape.to.y}${cross(shape.to.x, shape.to.y)}`}));
    return nodes;
}

// Each label goes to the first of its places where no other one and no point is, or else below the one that is in its way.
function placeLabels(labels, shapes, unit) {
    const r = 9 * unit;
    const taken = shapes.filter((shape) => shape.x !== undefined).map((shape) => ({x: shape.x - r, y: shape.y - r, right: shape.x + r, bottom: shape.y + r}));
    return labels.map((label) => {
        const boxAt = ([x, y]) => ({x, y: y - 12 * unit, right: x + label.text.length * 6.4 * unit, bottom: y + 3 * unit});
        const isFree = (box) => taken.every((other) => box.right < other.x || box.x > other.right || box.bottom < other.y || box.y > other.bottom);
        let place = label.places.find((each) => isFree(boxAt(each)));
        for (let step = 1; !place && step < 20; ++step) {
            const [x, y] = label.places[0];
            if (isFree(boxAt([x, y + step * 15 * unit]))) place = [x, y + step * 15 * unit];
        }
        const [x, y] = place || label.places[0];
        taken.push(boxAt([x, y]));
        return svg('text', {class: `shape-label ${label.id}`, x, y, 'font-size': 12 * unit}, label.text);
    });
}
