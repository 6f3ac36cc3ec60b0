// SPDX-License-Identifier: Apache-2.0
// The Sensor view: places on the sensor in a request, to scale.

const PICTURE = 'read as -1000 to 1000 across the crop by zoom';
const LAYERS = [
    {id: 'active', label: 'Active array', system: 'pixels of the sensor'},
    {id: 'crop', label: 'Crop by zoom', system: 'pixels of the active array, from the zoom ratio', names: ['qz-zoom-in']},
    {id: 'region', label: 'Crop region', system: 'pixels of the active array', names: ['android.scaler.cropRegion']},
    {id: 'focus', label: 'Focus areas', system: '-1000 to 1000 across the crop by zoom', names: ['qz-focus-value']},
    {id: 'metering', label: 'Metering areas', system: '-1000 to 1000 across the crop by zoom', names: ['qz-metering-value']},
    {id: 'face', label: 'Faces', system: 'pixels of the active array', names: ['android.statistics.faceRectangles'], ofResult: true},
    {id: 'tracking', label: 'Tracking', system: PICTURE, names: ['qz-device-target-tracking-coordinate']},
    {id: 'mirror', label: 'Mirror point', system: 'read as x and y in 16 bits each, pixels of the active array', names: ['mirrorPoint']},
    {id: 'sub', label: 'Secondary sensor', system: 'pixels of its own array'},
];
const ON_PICTURE = ['focus', 'metering', 'tracking'];
const NO_ARRAY = 'unknown place: no input states the active array';

class SensorView {
    constructor(scenes) {
        this.scenes = scenes;
        this.off = new Set();
        const {count, what} = scenes;
        this.slider = el('input', {type: 'range', min: 1, max: Math.max(1, count), value: 1, step: 1, 'aria-label': what, disabled: count < 2});
        this.slider.addEventListener('input', () => this.show(Number(this.slider.value) - 1));
        this.place = el('output', {class: 'place', 'aria-live': 'polite'});
        this.picture = el('div', {class: 'picture'});
        this.legend = el('ul', {class: 'legend'});
        const step = (by, text, label) => el('button', {type: 'button', 'aria-label': label, onclick: () => this.show(this.number + by)}, text);
        this.element = el('section', {class: 'sensor'},
            el('div', {class: 'slider'}, step(-1, '◀', `${what} before`), this.slider, step(1, '▶', `Next ${what.toLowerCase()}`), this.place),
            el('div', {class: 'columns'}, this.picture, el('aside', {'aria-label': 'Legend'}, this.legend)));
        this.draw = onceAFrame(() => this.drawNow());
        new ResizeObserver(this.draw).observe(this.picture);
        this.show(scenes.first);
    }

    show(number) {
        this.number = Math.min(Math.max(number, 0), this.scenes.count - 1);
        this.slider.value = this.number + 1;
        this.draw();
    }

    drawNow() {
        const scene = this.scenes.scene(this.number);
        const where = this.scenes.title(this.number);
        this.place.textContent = visible(where);
        this.slider.setAttribute('aria-valuetext', visible(where));
        const shapes = this.shapesOf(scene);
        this.picture.replaceChildren(...this.pictures(scene, shapes));
        this.legend.replaceChildren(...LAYERS.map((layer) => this.legendItem(layer, scene, shapes)));
    }

    // A shape whose place is not known has a text `unknown` and is not drawn.
    shapesOf(scene) {
        const area = (shape) => ({...shape, label: `weight ${shape.weight}${shape.sent ? '' : ', not sent'}`});
        const onArray = (list) => list.filter(Boolean).map((shape) => (scene.active ? shape : {...shape, unknown: NO_ARRAY}));
        const shapes = {active: scene.active ? [{...scene.active, text: `${scene.active.width} × ${scene.active.height}`}] : []};
        const zooms = scene.values('qz-zoom-in');
        shapes.crop = !zooms ? [] : scene.crop ? [{...scene.crop, text: `${scene.ratio} ×: ${rectangleText(scene.crop)}`}] : [{text: `${scene.ratio} ×`, unknown: NO_ARRAY}];
        shapes.focus = scene.areas('focus-areas', 'qz-focus-value').map(area);
        shapes.metering = scene.areas('metering-areas', 'qz-metering-value').map(area);
        shapes.face = onArray(scene.faces());
        shapes.tracking = [scene.tracking()].filter(Boolean);
        shapes.mirror = onArray([scene.mirror()]);
        return Object.assign(shapes, this.regionsOf(scene, onArray));
    }

    regionsOf(scene, onArray) {
        const region = scene.region();
        const isSecondary = scene.isSecondary();
        const sub = scene.sub ? [{...scene.sub, text: `${scene.sub.width} × ${scene.sub.height}`}] : [];
        if (!region) return {region: [], sub};
        if (isSecondary) return {region: [], sub: [...sub, {...region, inner: true, text: `crop ${rectangleText(region)}`}]};
        const shape = {...region, text: rectangleText(region)};
        return {region: isSecondary === null ? [{...shape, unknown: 'unknown which of the two sensors it lies on'}] : onArray([shape]), sub};
    }

    // Returns the reason why a layer is empty.
    absenceOf(layer, scene) {
        if (layer.names) return scene.absence(layer.names, layer.ofResult ? scene.result : null);
        return layer.id === 'sub' && scene.isDescribed ? 'not declared' : 'unknown: no input states it';
    }

    systemOf(layer, scene) {
        return ON_PICTURE.includes(layer.id) && !scene.crop ? `-1000 to 1000 across the picture; its place on the array is unknown: nothing states the ${scene.active ? 'zoom' : 'active array'}` : layer.system;
    }

    legendItem(layer, scene, shapes) {
        const found = shapes[layer.id];
        const isDrawn = found.some((shape) => !shape.unknown);
        const box = el('input', {type: 'checkbox', id: `layer-${layer.id}`, disabled: !isDrawn});
        box.checked = !this.off.has(layer.id);
        box.addEventListener('change', () => {
            if (box.checked) this.off.delete(layer.id);
            else this.off.add(layer.id);
            this.draw();
        });
        const texts = found.map((shape) => el('li', {}, shape.text, shape.label ? el('span', {class: 'muted'}, ` ${shape.label}`) : null,
            shape.to ? el('span', {class: 'muted'}, ` moved by ${shape.to.text}`) : null, shape.unknown ? el('span', {class: 'unknown'}, ` ${shape.unknown}`) : null));
        return el('li', {class: isDrawn ? '' : 'absent'}, box, el('span', {class: `swatch ${layer.id}`, 'aria-hidden': 'true'}),
            el('label', {for: `layer-${layer.id}`}, layer.label, el('small', {}, found.length ? this.systemOf(layer, scene) : this.absenceOf(layer, scene))),
            found.length ? el('ul', {class: 'values'}, texts) : null);
    }

    seen(shapes, ids) { return ids.filter((id) => !this.off.has(id)).flatMap((id) => shapes[id].filter((shape) => !shape.unknown).map((shape) => ({...shape, id}))); }

    pictures(scene, shapes) {
        const onPicture = this.seen(shapes, ON_PICTURE);
        const hasOwnPicture = !scene.crop && onPicture.length > 0;
        const room = {width: Math.max(240, this.picture.clientWidth - 26), height: Math.max(220, innerHeight * (hasOwnPicture && scene.active ? 0.36 : 0.6))};
        const main = [...this.seen(shapes, ['crop', 'region']), ...(scene.crop ? onPicture : []), ...this.seen(shapes, ['face', 'mirror'])];
        const inner = shapes.sub.filter((shape) => shape.inner).map((shape) => ({...shape, id: 'sub'}));
        const array = scene.sub || inner[0];
        const isTwo = inner.length > 0 && !this.off.has('sub');
        const figures = [];
        const pixels = scaleFor(room, boundsOf(scene.active || array || scene.ground, main), isTwo ? boundsOf(array, inner) : null);
        if (scene.active) figures.push(this.figure('Active array', scene.active, main, !this.off.has('active'), pixels));
        if (isTwo) figures.push(this.figure(scene.sub ? 'Secondary sensor' : 'Secondary sensor, whose size is unknown: its crop', array, inner, true, pixels));
        if (hasOwnPicture) {
            const own = scaleFor(room, boundsOf(scene.ground, onPicture), null);
            figures.unshift(this.figure('Picture, whose place on the array is unknown', scene.ground, onPicture, true, own));
        }
        return figures.length > 0 ? figures : [el('p', {class: 'muted'}, 'Nothing can be drawn: see the legend for what is unknown.')];
    }

    // All pictures have the same scale, in pixels of the screen for one pixel of the sensor.
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

// Returns the scale at which one or two pictures fit beside or below each other.
function scaleFor(room, one, two) {
    const fit = (width, height) => Math.min(room.width / width, room.height / height);
    if (!two) return fit(one.width, one.height);
    const beside = Math.min((room.width - 40) / (one.width + two.width), room.height / Math.max(one.height, two.height));
    const below = Math.min(room.width / Math.max(one.width, two.width), (room.height - 60) / (one.height + two.height));
    return Math.max(beside, below);
}

// Returns the array with a margin, and shapes outside it up to a distance of three arrays.
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

// Draws the shape without its label, which is placed later.
function drawShape(shape, unit, labels) {
    if (shape.x !== undefined) return drawPoint(shape, unit, labels);
    const [left, right] = [shape.left, shape.left + shape.width].sort((a, b) => a - b);
    const [top, bottom] = [shape.top, shape.top + shape.height].sort((a, b) => a - b);
    const name = {crop: 'crop by zoom', region: 'crop region', sub: 'crop', focus: 'focus', metering: 'metering'}[shape.id];
    const inside = ['crop', 'region', 'sub'].includes(shape.id);
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

// Each label gets the first of its places that is free of other labels and points. If there is none, it is
// placed below the label in its way.
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
