// SPDX-License-Identifier: Apache-2.0
// Builds the page from its data.

const asList = (data) => (Array.isArray(data) ? data : [data]);

function viewsOf(events, open) {
    const views = showViews(open);
    const check = readData('check');
    const diff = readData('diff');
    if (events) views.push(['timeline', 'Timeline', () => new TimelineView(events)]);
    const scenes = scenesOf(events);
    const cameras = readData('cameras');
    if (cameras) views.push(['device', 'Device', () => new CamerasView(cameras.cameras, readData('rows'))]);
    if (check) views.push(['device', 'Device', () => new DeviceView(check, readData('rows'))]);
    if (events && events.readInto && events.parameters.length + events.neverSeen.length > 0) views.push(['parameters', `Parameters ${events.parameters.length}`, () => outcomesView(events)]);
    const matrix = readData('matrix');
    if (matrix) views.push(['matrix', 'Matrix', () => new MatrixView(matrix)]);
    if (diff) views.push(['difference', 'Difference', () => new DifferenceView(diffSides(diff))]);
    const compare = readData('compare');
    if (compare) views.push(['difference', 'Difference', () => new DifferenceView(comparedSides(compare))]);
    if (scenes) views.splice(1, 0, ['sensor', 'Sensor', () => new SensorView(scenes)]);
    return views;
}

// Returns nothing if no place on the sensor is known.
function scenesOf(events) {
    const compare = readData('compare');
    if (compare) {
        const scenes = new CompareScenes(compare, readData('sensors'));
        return scenes.tells ? scenes : null;
    }
    if (!events) return null;
    const scenes = events.readInto ? new TraceScenes(events, readData('sensors')) : new RunScenes(events);
    return scenes.count > 0 ? scenes : null;
}

function headerOf(events) {
    const [, title, subject] = document.title.match(/^(.*?)(?:: (.*))?$/s);
    const badges = el('div', {class: 'badges'});
    if (events) badges.append(...summaryBadges(events));
    else badges.append(...checkBadges(readData('check')), ...camerasBadges(readData('cameras')), ...matrixBadges(readData('matrix')),
        ...showBadges(readData('show')), ...compareBadges(readData('compare')));
    return el('header', {}, el('div', {class: 'titles'}, el('p', {class: 'command'}, title), el('h1', {}, subject || 'All devices'),
        events ? el('p', {class: 'muted'}, sessionsOf(events)) : null), badges);
}

function sessionsOf(events) {
    const names = events.inputs || events.all.filter((item) => item.kind === 'session').map((item) => item.data.file);
    const cameras = [...new Set(events.devices.map((device) => device.camera))];
    const shown = names.length > 3 ? `${names.slice(0, 3).join(', ')} and ${names.length - 3} more` : names.join(', ');
    const isTold = document.title.endsWith(`: ${names.join(', ')}`);
    return [isTold ? null : shown, cameras.length ? `camera ${cameras.join(', ')}` : null].filter(Boolean).join(' · ');
}

function summaryBadges(events) {
    if (events.badges) return events.badges();
    const failed = events.count('expectation', (data) => !data.met);
    const met = events.count('expectation', (data) => data.met);
    const refused = events.findings.filter((finding) => finding.key !== undefined).length;
    return [met + failed > 0 ? badge('good', `${met.toLocaleString('en')} met`) : badge('plain', 'no expectations'),
        failed > 0 ? badge('bad', `${failed.toLocaleString('en')} failed`) : null,
        refused > 0 ? badge('warn', `${refused.toLocaleString('en')} not written as set`) : null,
        badge('plain', counted(events.requests.length, 'request'))].filter(Boolean);
}

function checkBadges(check) {
    if (!check) return [];
    return Object.entries(check.counts).filter(([, count]) => count > 0)
        .map(([name, count]) => badge(CHECK_TONES[name], `${count.toLocaleString('en')} ${CHECK_WORDS[name] ? CHECK_WORDS[name][0] : name}`));
}

function camerasBadges(data) {
    if (!data) return [];
    return [badge('plain', counted(data.cameras.length, 'camera')), badge(data.failed ? 'bad' : 'good', data.failed ? 'failed' : 'nothing failed')];
}

// Tabs work as in the ARIA authoring practices: arrows go from one to the next, and the panel follows.
class Tabs {
    constructor(views) {
        this.views = views.map(([id, label, make]) => ({id, label, make, panel: null}));
        this.bar = el('div', {class: 'tabs', role: 'tablist', 'aria-label': 'Views', onkeydown: (event) => this.onKey(event)});
        this.main = el('main', {});
        for (const view of this.views) {
            view.tab = el('button', {type: 'button', role: 'tab', id: `tab-${view.id}`, 'aria-controls': `panel-${view.id}`,
                onclick: () => this.open(view)}, view.label);
            this.bar.append(view.tab);
        }
        const wanted = this.views.find((view) => `#${view.id}` === location.hash);
        if (this.views.length > 0) this.open(wanted || this.views[0]);
    }

    open(view) {
        this.current = view;
        if (!view.panel) {
            view.panel = el('div', {role: 'tabpanel', id: `panel-${view.id}`, 'data-label': view.label, 'aria-labelledby': `tab-${view.id}`});
            this.main.append(view.panel);
            view.view = view.make();
            view.panel.append(view.view.element);
        }
        for (const each of this.views) {
            each.tab.setAttribute('aria-selected', String(each === view));
            each.tab.tabIndex = each === view ? 0 : -1;
            if (each.panel) each.panel.hidden = each !== view;
        }
        if (view.view.shown) view.view.shown();
    }

    // Opens a view by its name, at one of its groups.
    lead(id, group) {
        const view = this.views.find((each) => each.id === id);
        if (!view) return;
        this.open(view);
        view.view.choose(group);
        view.tab.focus();
    }

    onKey(event) {
        const step = {ArrowRight: 1, ArrowLeft: -1}[event.key];
        if (!step) return;
        event.preventDefault();
        const next = (this.views.indexOf(this.current) + step + this.views.length) % this.views.length;
        this.open(this.views[next]);
        this.views[next].tab.focus();
    }
}

function start() {
    const data = readData('events');
    const trace = readData('trace');
    const events = data ? new Events(asList(data)) : trace ? new TraceEvents(asList(trace)) : null;
    const tabs = new Tabs(viewsOf(events, (id, group) => tabs.lead(id, group)));
    document.getElementById('page').append(headerOf(events), tabs.bar, tabs.main);
}

start();
