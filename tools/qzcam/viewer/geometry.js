// SPDX-License-Identifier: Apache-2.0
// Areas, crops and points of one request, in pixels of the array that they lie on.
//
// Areas are in the coordinates of the parameter interface: -1000 to 1000 from the left to the right edge and from
// the upper to the lower edge of the picture, which is what digital zoom leaves of the active array. Crops and
// faces are in pixels of their array.

const endsWithName = (tag, name) => tag === name || tag.endsWith('.' + name);

// [left, top, width, height] of an entry with two or four numbers.
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

// "(left,top,right,bottom,weight),..." as lists of five numbers.
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

// The contents of the request with this number and of the result after it.
class Scene {
    constructor(events, number) {
        this.number = number;
        const at = events.requests[number];
        const item = events.all[at];
        this.item = item;
        const sensor = (item && item.device && item.device.sensor) || (events.devices[0] && events.devices[0].sensor) || {};
        this.active = arrayOf(sensor.activeArray) || arrayOf(sensor.pixelArray);
        this.stated = this.active !== null;
        this.active = this.active || {left: 0, top: 0, width: 4000, height: 3000};
        this.sub = arrayOf(sensor.subActiveArray);
        this.entries = item ? item.data.entries.filter((entry) => entry.change !== 'gone') : [];
        this.parameters = new Map();
        this.result = [];
        if (item) this.readAround(events, at);
        const zoom = this.entry('qz-zoom-in');
        this.ratio = zoom && zoom.values[0] >= 1 ? zoom.values[0] : 1;
        this.crop = cropByZoom(this.active, this.ratio);
    }

    // The verdicts follow the request; results count until the next one.
    readAround(events, at) {
        for (let i = at + 1; i < events.all.length && events.all[i].kind !== 'request' && events.all[i].kind !== 'session'; ++i) {
            const {kind, data} = events.all[i];
            if (kind === 'verdicts') for (const row of data.parameters) this.parameters.set(row.key, row.value);
            if (kind === 'result') this.result = data.entries.filter((entry) => entry.change !== 'gone');
        }
    }

    entry(name) { return this.entries.find((entry) => endsWithName(entry.tag, name)); }
    resultEntry(name) { return this.result.find((entry) => endsWithName(entry.tag, name)); }

    // All areas of the parameter, and which of them the request has: the last one.
    areas(key, tag) {
        const entry = this.entry(tag);
        const sent = entry && entry.values.length === 5 ? entry.values.join() : null;
        const all = areasOf(this.parameters.get(key) || '');
        if (sent !== null && !all.some((area) => area.join() === sent)) all.push(entry.values);
        return all.map((area) => ({...areaShape(this.crop, area), sent: area.join() === sent}));
    }

    // The crop of the secondary sensor, if it streams alone: the only request entry of the platform.
    subCrop() {
        const entry = this.entry('android.scaler.cropRegion');
        return entry ? arrayOf(entry.values) : null;
    }

    faces() {
        const rectangles = this.resultEntry('android.statistics.faceRectangles');
        const scores = this.resultEntry('android.statistics.faceScores');
        if (!rectangles) return [];
        const shapes = [];
        for (let i = 0; i + 3 < rectangles.values.length; i += 4) {
            const [left, top, right, bottom] = rectangles.values.slice(i, i + 4);
            const score = scores && scores.values[i / 4];
            shapes.push({left, top, width: right - left, height: bottom - top, text: `${left}, ${top}, ${right}, ${bottom}`,
                label: score === undefined ? `face ${i / 4 + 1}` : `face ${i / 4 + 1}, score ${score}`});
        }
        return shapes;
    }

    tracking() {
        const entry = this.entry('qz-device-target-tracking-coordinate');
        if (!entry || entry.values.length < 2) return null;
        const [x, y] = entry.values;
        const offset = this.resultEntry('target-coordinates-offset');
        const point = {x: xOfArea(this.crop, x), y: yOfArea(this.crop, y), text: `${x}, ${y}`};
        if (offset && offset.values.length === 2) {
            const [dx, dy] = offset.values;
            point.to = {x: xOfArea(this.crop, x + dx), y: yOfArea(this.crop, y + dy), text: `${dx}, ${dy}`};
        }
        return point;
    }

    // One number; its upper and lower half are read as two coordinates.
    mirror() {
        const entry = this.entry('mirrorPoint');
        if (!entry || entry.values.length < 1) return null;
        const packed = entry.values[0] >>> 0;
        const x = packed >>> 16;
        const y = packed & 0xffff;
        return {x: this.active.left + x, y: this.active.top + y, text: `0x${packed.toString(16)}: ${x}, ${y}`};
    }
}
