// SPDX-License-Identifier: Apache-2.0
// Areas, crops and points of one request, in pixels of the array that they refer to.
//
// Areas are in the coordinates of the parameter interface: -1000 to 1000 from the left to the right edge and from
// the upper to the lower edge of the picture, which is the part of the active array inside the digital zoom.
// Crops and faces are in pixels of their array.

const endsWithName = (tag, name) => tag === name || tag.endsWith('.' + name);

// Returns [left, top, width, height] of an entry with two or four numbers.
function arrayOf(values) {
    if (!Array.isArray(values)) return null;
    if (values.length === 2) return {left: 0, top: 0, width: values[0], height: values[1]};
    if (values.length === 4) return {left: values[0], top: values[1], width: values[2], height: values[3]};
    return null;
}

function cropByZoom(array, ratio) {
    const width = array.width / ratio;
    const height = array.height / ratio;
    return {left: array.left + (array.width - width) / 2, top: array.top + (array.height - height) / 2, width, height};
}

const xOfArea = (crop, x) => crop.left + ((x + 1000) / 2000) * crop.width;
const yOfArea = (crop, y) => crop.top + ((y + 1000) / 2000) * crop.height;

// Returns "(left,top,right,bottom,weight),..." as lists of five numbers.
function areasOf(text) {
    const areas = [];
    for (const match of String(text).matchAll(/\(([^()]*)\)/g)) {
        const numbers = match[1].split(',').map(Number);
        if (numbers.length === 5 && numbers.every(Number.isFinite)) areas.push(numbers);
    }
    return areas;
}

function areaShape(crop, [left, top, right, bottom, weight]) {
    return {left: xOfArea(crop, left), top: yOfArea(crop, top), width: xOfArea(crop, right) - xOfArea(crop, left),
        height: yOfArea(crop, bottom) - yOfArea(crop, top), weight, text: `${left}, ${top}, ${right}, ${bottom}`};
}

// Returns the places on the sensor of one request and its result. Without `isWhole` a place without an entry
// is unknown.
class Scene {
    constructor({sensor, request, result, parameters, isWhole, isLibrarys, wholes}) {
        Object.assign(this, {request, result, parameters, isWhole, isLibrarys, wholes: wholes || {}});
        this.active = arrayOf((sensor || {}).activeArray) || arrayOf((sensor || {}).pixelArray);
        this.sub = arrayOf((sensor || {}).subActiveArray);
        this.isDescribed = sensor !== undefined;
        const zoom = this.values('qz-zoom-in');
        this.ratio = zoom ? Math.max(1, zoom[0]) : this.lacks('qz-zoom-in') ? 1 : null;
        this.crop = this.active && this.ratio ? cropByZoom(this.active, this.ratio) : null;
        // Areas are drawn on the crop. While the place of the crop is unknown, they are drawn on a separate
        // picture.
        this.ground = this.crop || {left: -1000, top: -1000, width: 2000, height: 2000};
    }

    entry(name, list) { return (list || this.request).find((entry) => endsWithName(entry.tag, name)); }

    values(name, list) {
        const entry = this.entry(name, list);
        return entry && entry.values && entry.values.length > 0 ? entry.values : null;
    }

    lacks(name) {
        const entry = this.entry(name);
        return entry ? Boolean(entry.gone) : this.isWhole || Boolean(this.wholeWithout(name, 'request'));
    }

    // Returns true for a request or result that is listed whole and does not have the entry.
    wholeWithout(name, side) {
        const whole = this.wholes[side];
        return whole && !whole.tags.some((tag) => endsWithName(tag, name)) ? whole : null;
    }

    // Returns the reason why an entry is not drawn.
    absence(names, list) {
        const entry = names.map((name) => this.entry(name, list)).find(Boolean);
        const whole = entry ? null : this.wholeWithout(names[0], list ? 'result' : 'request');
        if (whole) return `not in the ${whole.text}, line ${whole.line}`;
        if (!entry) return this.isWhole ? 'not there' : 'unknown: no earlier line states it';
        if (entry.refused) return `the update was refused in line ${entry.line}`;
        if (entry.gone) return `not there since line ${entry.line}`;
        return `unknown: ${entry.values ? `${entry.values.length} values, from which no area can be drawn` : `line ${entry.line} states it in part`}`;
    }

    // Returns all areas of the parameter. Only the last one is in the request.
    areas(key, tag) {
        const values = this.values(tag);
        const sent = values && values.length === 5 ? values.join() : null;
        const all = areasOf(this.parameters.get(key) || '');
        if (sent !== null && !all.some((area) => area.join() === sent)) all.push(values);
        return all.map((area) => ({...areaShape(this.ground, area), sent: area.join() === sent}));
    }

    // Returns true if the library's own crop region is on the secondary sensor: when only that sensor streams, or, for a
    // phone, by the mode. Null: unknown.
    isSecondary() {
        if (this.isLibrarys) return true;
        const mode = this.values('dualSensorMode');
        if (mode) return mode[0] === 2;
        return this.lacks('dualSensorMode') || (this.isDescribed && !this.sub) ? false : null;
    }

    region() { return arrayOf(this.values('android.scaler.cropRegion')); }

    faces() {
        const rectangles = this.values('android.statistics.faceRectangles', this.result) || [];
        const scores = this.values('android.statistics.faceScores', this.result);
        const shapes = [];
        for (let i = 0; i + 3 < rectangles.length; i += 4) {
            const [left, top, right, bottom] = rectangles.slice(i, i + 4);
            const score = scores && scores[i / 4];
            shapes.push({left, top, width: right - left, height: bottom - top, text: `${left}, ${top}, ${right}, ${bottom}`,
                label: score === undefined || score === null ? `face ${i / 4 + 1}` : `face ${i / 4 + 1}, score ${score}`});
        }
        return shapes;
    }

    tracking() {
        const values = this.values('qz-device-target-tracking-coordinate');
        if (!values || values.length < 2) return null;
        const [x, y] = values;
        const offset = this.values('target-coordinates-offset', this.result);
        const point = {x: xOfArea(this.ground, x), y: yOfArea(this.ground, y), text: `${x}, ${y}`};
        if (offset && offset.length === 2) {
            const [dx, dy] = offset;
            point.to = {x: xOfArea(this.ground, x + dx), y: yOfArea(this.ground, y + dy), text: `${dx}, ${dy}`};
        }
        return point;
    }

    // One number: its upper and its lower half are two coordinates.
    mirror() {
        const values = this.values('mirrorPoint');
        if (!values) return null;
        const packed = values[0] >>> 0;
        const x = packed >>> 16;
        const y = packed & 0xffff;
        const {left, top} = this.active || {left: 0, top: 0};
        return {x: left + x, y: top + y, text: `0x${packed.toString(16)}: ${x}, ${y}`};
    }
}
