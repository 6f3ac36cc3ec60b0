// SPDX-License-Identifier: Apache-2.0
// The scenes of the Sensor view: each request of a run, each place of a trace that states something new about the
// sensor, and the two sides of a comparison.

const PLACE_TAGS = ['qz-zoom-in', 'qz-focus-value', 'qz-metering-value', 'android.scaler.cropRegion', 'mirrorPoint', 'dualSensorMode', 'target-coordinates-offset',
    'qz-device-target-tracking-coordinate', 'android.statistics.faceRectangles', 'android.statistics.faceScores'];
const placeTag = (tag) => PLACE_TAGS.find((name) => endsWithName(tag, name));

class RunScenes {
    constructor(events) {
        this.events = events;
        this.count = events.requests.length;
        this.what = 'Request';
        // Begins at a request with something to draw, if there is one.
        const tells = (at) => events.all[at].data.entries.some((entry) => placeTag(entry.tag));
        this.first = Math.max(0, events.requests.slice(0, 2000).findIndex(tells));
    }

    title(number) {
        const {line} = this.events.all[this.events.requests[number]];
        return `Request ${(number + 1).toLocaleString('en')} of ${this.count.toLocaleString('en')}${line ? `, line ${line}` : ''}`;
    }

    // The verdicts follow the request. Results belong to it until the next request.
    scene(number) {
        const {all, requests, devices} = this.events;
        const there = (data) => data.entries.filter((entry) => entry.change !== 'gone');
        const at = requests[number];
        const parameters = new Map();
        let result = [];
        for (let i = at + 1; i < all.length && all[i].kind !== 'request' && all[i].kind !== 'session'; ++i) {
            const {kind, data} = all[i];
            if (kind === 'verdicts') for (const row of data.parameters) parameters.set(row.key, row.value);
            if (kind === 'result') result = there(data);
        }
        return new Scene({sensor: (all[at].device || devices[0] || {}).sensor, request: there(all[at].data), result, parameters, isWhole: true, isLibrarys: true});
    }
}

class TraceScenes {
    constructor(events, sensors) {
        this.events = events;
        this.sensors = sensors || {};
        this.what = 'Place';
        this.first = 0;
        this.places = [];  // the last item of each kind
        for (const item of events.all) {
            if (!['entry', 'logged', 'refused'].includes(item.kind) || !placeTag(item.data.tag || '')) continue;
            const before = this.places[this.places.length - 1];
            if (before && isOnePlace(before, item)) this.places.pop();
            this.places.push(item);
        }
        this.count = this.places.length;
    }

    title(number) {
        const item = this.places[number];
        const {data, session} = item;
        const array = item.array === undefined ? null : this.events.all[item.array].data.text;
        const parts = [array, data.frame === undefined ? null : `frame ${data.frame}`, data.camera ? `camera ${data.camera}` : null, `line ${data.line} of ${session}`];
        return `Place ${number + 1} of ${this.count}: ${parts.filter(Boolean).join(', ')}`;
    }

    // The values of this camera in all lines up to this place. A value is valid until a line states another
    // one.
    scene(number) {
        const last = this.places[number];
        const sides = {request: new Map(), result: new Map()};
        const wholes = {};
        for (const item of this.places.length ? this.events.all.slice(0, last.index + 1) : []) {
            const {kind, data} = item;
            if (item.group !== last.group || data.camera !== last.data.camera) continue;
            const side = sides[data.of === 'result' ? 'result' : 'request'];
            if (isWholeArray(item)) {
                wholes[kind] = data;
                for (const tag of side.keys()) if (!data.tags.includes(tag)) side.delete(tag);
            }
            if (!data.tag || !['entry', 'logged', 'refused'].includes(kind)) continue;
            side.set(data.tag, {tag: data.tag, values: kind === 'refused' || data.removed ? null : statedValues(data), gone: data.removed, refused: kind === 'refused', line: data.line});
        }
        return new Scene({sensor: this.sensors[last.data.camera], request: [...sides.request.values()], result: [...sides.result.values()], parameters: new Map(), isWhole: false, wholes});
    }
}

function isOnePlace(one, other) {
    if (one.group !== other.group || one.data.camera !== other.data.camera) return false;
    return other.array !== undefined ? one.array === other.array : one.array === undefined && one.data.frame !== undefined && one.data.frame === other.data.frame;
}

// A request or result of a dump that lists all its entries.
const isWholeArray = ({kind, data}) => ['request', 'result'].includes(kind) && data.tags !== undefined && !/missing/.test(data.cause || '');

// Null for values of which a line states only a part.
function statedValues(data) {
    if (data.values) return data.values;
    const values = String(data.value === null ? '?' : data.value).split(' ').map(Number);
    return values.every(Number.isFinite) && !/missing/.test(data.cause || '') ? values : null;
}

// The phone's array comes first, then that of the library.
class CompareScenes {
    constructor(compare, sensors) {
        Object.assign(this, {compare, count: 2, what: 'Side', first: 0});
        this.sensor = (sensors || {})[compare.camera.replace(/^.*\//, '')];
        this.isResult = /\bframe\b/.test(compare.array);
        this.tells = compare.entries.some((entry) => placeTag(entry.tag));
    }

    title(number) { return number === 0 ? `There, the phone: ${this.compare.array}` : `Here, the library: ${this.compare.here}`; }

    scene(number) {
        const side = number === 0 ? 'there' : 'here';
        const entries = this.compare.entries.filter((entry) => entry[side]);
        const list = entries.map((entry) => ({tag: entry.tag, values: entry[side].values, cut: number === 0 && entry.cut, line: number === 0 ? entry.line : undefined}));
        const parameters = new Map(number === 0 ? [] : entries.flatMap((entry) => Object.entries(entry.parameters || {})));
        return new Scene({sensor: this.sensor, request: list, result: this.isResult ? list : [], parameters, isWhole: !this.isResult, isLibrarys: number === 1});
    }
}
