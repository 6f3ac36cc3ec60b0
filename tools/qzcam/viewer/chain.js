// SPDX-License-Identifier: Apache-2.0
// Related changes: a parameter, its entries, the results and the messages. A node is a change of a lane:
// {lane, at}, where `at` is the index in the lane's lists.

class Chains {
    constructor(events, lanes) {
        this.events = events;
        this.lanes = lanes;
    }

    node(id, index) {
        const lane = this.lanes.byId.get(id);
        if (!lane) return null;
        const at = lane.before(index);
        return at >= 0 && (lane.marks ? lane.at[at] === index : lane.texts[at] !== null) ? {lane, at} : null;
    }

    item(node) { return this.events.all[node.lane.at[node.at]]; }

    // Returns the node with all its causes and effects: nodes, and links between them.
    of(start) {
        if (this.events.neighbours) {
            const around = this.events.neighbours(this, start).slice(0, 12);
            return {nodes: [start, ...around], links: around.map((node) => ({from: node, to: start}))};
        }
        const nodes = [start];
        const links = [];
        const known = (node) => nodes.find((each) => each.lane === node.lane && each.at === node.at);
        const follow = (node, neighbours, forward) => {
            for (const next of neighbours(node)) {
                const same = known(next);
                links.push(forward ? {from: node, to: same || next} : {from: same || next, to: node});
                if (same) continue;
                nodes.push(next);
                follow(next, neighbours, forward);
            }
        };
        follow(start, (node) => this.causes(node), false);
        for (const node of [...nodes]) follow(node, (each) => this.effects(each).slice(0, 12), true);
        return {nodes, links: uniqueLinks(links)};
    }

    causes(node) {
        const item = this.item(node);
        if (node.lane.group === 'request') return this.parametersOf(item, this.entryOf(item, node.lane.name));
        if (node.lane.id === 'session:messages') return this.resultsOf(item);
        if (node.lane.group === 'result') return this.requestsOf(item, node.lane.name);
        if (node.lane.id === 'session:expectations') return this.subjectOf(item);
        return [];
    }

    effects(node) {
        const item = this.item(node);
        if (node.lane.group === 'parameter') return this.entriesOf(item, node.lane.name);
        if (node.lane.group === 'request') return this.resultAfter(node, item);
        if (node.lane.group === 'result') return this.messagesOf(item, node.lane.name);
        return [];
    }

    entryOf(item, tag) { return (item.data.entries || []).find((entry) => entry.tag === tag); }

    // The verdicts of a request follow it directly.
    verdictsAfter(item) {
        for (let i = item.index; i < this.events.all.length && i < item.index + 40; ++i) {
            if (this.events.all[i].kind === 'verdicts') return this.events.all[i];
        }
        return null;
    }

    requestBefore(item) {
        for (let i = item.index; i >= 0 && i > item.index - 40; --i) if (this.events.all[i].kind === 'request') return this.events.all[i];
        return null;
    }

    parametersOf(item, entry) {
        const verdicts = this.verdictsAfter(item);
        if (!entry || !entry.from || !verdicts) return [];
        return Object.keys(entry.from).map((key) => this.node(`parameter:${key}`, verdicts.index)).filter(Boolean);
    }

    entriesOf(item, key) {
        const request = this.requestBefore(item);
        const row = (item.data.parameters || []).find((each) => each.key === key);
        if (!request || !row) return [];
        const written = row.entries.filter((entry) => ['written', 'fallback', 'not-offered', 'overflows'].includes(entry.verdict));
        return written.map((entry) => this.node(`request:${entry.tag}`, request.index)).filter(Boolean);
    }

    // Returns the first result with the entry while the request's value is valid.
    resultAfter(node, item) {
        const lane = this.lanes.byId.get(`result:${node.lane.name}`);
        if (!lane) return [];
        const until = node.lane.at[node.at + 1] === undefined ? Infinity : node.lane.at[node.at + 1];
        const at = upperBound(lane.at, item.index);
        if (at < lane.at.length && lane.at[at] < until && lane.texts[at] !== null) return [{lane, at}];
        return [];
    }

    requestsOf(item, tag) { return [this.node(`request:${tag}`, item.index)].filter(Boolean); }

    messagesOf(item, tag) {
        const nodes = [];
        for (let i = item.index + 1; i < this.events.all.length; ++i) {
            const next = this.events.all[i];
            if (['result', 'command', 'session'].includes(next.kind)) break;
            if (next.kind === 'callback' && (next.data.from || []).includes(tag)) nodes.push(this.node('session:messages', i));
        }
        return nodes.filter(Boolean);
    }

    resultsOf(item) {
        return (item.data.from || []).map((tag) => this.node(`result:${tag}`, item.index)).filter(Boolean);
    }

    // Returns the entry or parameter of an expectation.
    subjectOf(item) {
        const [command, name] = item.data.text.split(/\s+/);
        if (!/^expect-(no-)?(entry|verdict|param)/.test(command) || !name) return [];
        const found = this.lanes.all.find((lane) => (lane.group === 'request' && endsWithName(lane.name, name)) ||
            (lane.group === 'parameter' && lane.name === name));
        return found ? [this.node(found.id, item.index)].filter(Boolean) : [];
    }
}

function uniqueLinks(links) {
    const seen = new Set();
    return links.filter(({from, to}) => {
        const id = `${from.lane.id} ${from.at} ${to.lane.id} ${to.at}`;
        return !seen.has(id) && seen.add(id);
    });
}
