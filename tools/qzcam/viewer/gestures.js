// SPDX-License-Identifier: Apache-2.0
// Mouse and keys of the timeline, and its overview.

Object.assign(TimelineView.prototype, {
    listen() {
        const {scroller} = this;
        scroller.addEventListener('scroll', this.draw);
        scroller.addEventListener('wheel', (event) => this.onWheel(event), {passive: false});
        scroller.addEventListener('keydown', (event) => this.onKey(event));
        scroller.addEventListener('pointerdown', (event) => this.onPress(event));
        scroller.addEventListener('pointermove', (event) => this.onMove(event));
        scroller.addEventListener('pointerup', (event) => this.onRelease(event));
        scroller.addEventListener('pointerleave', () => { this.tip.hidden = true; });
        this.overview.addEventListener('pointerdown', (event) => this.onOverview(event));
        this.overview.addEventListener('pointermove', (event) => event.buttons === 1 && this.onOverview(event));
        new ResizeObserver(() => this.shown()).observe(scroller);
        forPaper(() => this.drawNow());
    },

    // A factor of 0 shows everything.
    zoom(factor, x) {
        const {scale} = this;
        if (factor === 0) Object.assign(scale, {perUnit: scale.fit, from: 0});
        const chosen = this.node ? scale.x(this.axis[this.node.lane.at[this.node.at]]) : NaN;
        const middle = chosen >= scale.left && chosen <= scale.width ? chosen : (scale.left + scale.width) / 2;
        if (factor !== 0) scale.zoom(factor, x === undefined ? middle : x);
        this.draw();
    },

    pan(pixels) {
        this.scale.from += pixels / this.scale.perUnit;
        this.scale.limit();
        this.draw();
    },

    onWheel(event) {
        const sideways = event.shiftKey ? event.deltaY || event.deltaX : event.deltaX;
        if (event.ctrlKey || event.metaKey) {
            event.preventDefault();
            this.zoom(Math.exp(-event.deltaY / 300), event.clientX - this.scroller.getBoundingClientRect().left);
        } else if (sideways !== 0) {
            event.preventDefault();
            this.pan(sideways);
        }
    },

    onKey(event) {
        const steps = {
            '+': () => this.zoom(1.6), '=': () => this.zoom(1.6), '-': () => this.zoom(1 / 1.6), 0: () => this.zoom(0),
            ArrowLeft: () => (event.shiftKey ? this.pan(-120) : this.step(-1)), ArrowRight: () => (event.shiftKey ? this.pan(120) : this.step(1)),
            ArrowUp: () => this.stepLane(-1), ArrowDown: () => this.stepLane(1), Home: () => this.stepTo(0), End: () => this.stepTo(Infinity),
            Escape: () => this.leave(),
        };
        const act = event.ctrlKey || event.altKey || event.metaKey ? null : steps[event.key];
        if (!act) return;
        event.preventDefault();
        act();
    },

    leave() {
        this.node = null;
        this.details.clear();
        if (this.onlyChain.on) this.onlyChain.set(false);
        this.draw();
    },

    step(by) {
        if (!this.node) return this.stepTo(0);
        const at = this.node.at + by;
        if (at >= 0 && at < this.node.lane.at.length) this.choose({lane: this.node.lane, at});
    },

    stepTo(at) {
        const lane = this.node ? this.node.lane : this.shownLanes[0];
        if (lane) this.choose({lane, at: Math.min(at, lane.at.length - 1)});
    },

    // Returns the change of the other lane that is valid at the same place.
    stepLane(by) {
        if (!this.node) return this.stepTo(0);
        const lane = this.shownLanes[this.shownLanes.indexOf(this.node.lane) + by];
        if (!lane) return;
        const unit = this.axis[this.node.lane.at[this.node.at]];
        this.choose({lane, at: Math.max(0, this.lastAt(lane, unit))});
    },

    nodeAt(event) {
        const box = this.scroller.getBoundingClientRect();
        const [x, y] = [event.clientX - box.left, event.clientY - box.top];
        const lane = this.shownLanes[Math.floor((y - AXIS + this.scroller.scrollTop) / ROW)];
        if (!lane || y < AXIS || x < this.scale.left) return null;
        const at = this.nearest(lane, x);
        return at < 0 || lane.texts[at] === null ? null : {lane, at};
    },

    // Returns the last change of the lane at or before the place.
    lastAt(lane, unit) {
        let low = 0;
        let high = lane.at.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.axis[lane.at[middle]] <= unit) low = middle + 1;
            else high = middle;
        }
        return low - 1;
    },

    // Marks are separate. In a lane of values the last change before the place is valid.
    nearest(lane, x) {
        const unit = this.scale.unit(x);
        const last = this.lastAt(lane, unit);
        if (!lane.marks) return last;
        // The worst of several marks at one place is selected.
        let found = -1;
        for (let at = last; at >= 0 && at > last - 60 && this.axis[lane.at[at]] > unit - Math.max(1, 3 / this.scale.perUnit); --at) {
            if (found < 0 || lane.tones[at] === 'bad' || (lane.tones[at] === 'warn' && lane.tones[found] !== 'bad')) found = at;
        }
        return found;
    },

    onPress(event) {
        if (event.button !== 0) return;
        this.press = {x: event.clientX, from: this.scale.from, moved: false};
    },

    onMove(event) {
        if (this.press && event.buttons === 1) {
            const distance = event.clientX - this.press.x;
            if (!this.press.moved && Math.abs(distance) < 4) return;
            if (!this.press.moved) this.scroller.setPointerCapture(event.pointerId);
            this.press.moved = true;
            this.scale.from = this.press.from - distance / this.scale.perUnit;
            this.scale.limit();
            this.draw();
            return;
        }
        this.showTip(event);
    },

    onRelease(event) {
        const {press} = this;
        this.press = null;
        if (!press || press.moved) return;
        const node = this.nodeAt(event);
        if (node) this.choose(node);
    },

    showTip(event) {
        const node = this.nodeAt(event);
        this.tip.hidden = !node;
        if (!node) return;
        const item = this.chains.item(node);
        this.tip.replaceChildren(el('strong', {}, node.lane.label), el('span', {}, node.lane.texts[node.at]), el('small', {}, placeText(item)));
        const box = this.element.getBoundingClientRect();
        const left = Math.min(event.clientX - box.left + 14, box.width - this.tip.offsetWidth - 4);
        this.tip.style.left = `${Math.max(0, left)}px`;
        this.tip.style.top = `${event.clientY - box.top + 18}px`;
    },

    // Draws the whole run in one strip, with all failures.
    drawOverview() {
        const width = this.scroller.clientWidth;
        if (!width || !this.scale) return;
        const {left} = this.scale;
        const x = (index) => left + (this.axis[index] / this.scale.units) * (width - left);
        const strip = (tone) => {
            const seen = new Set();
            for (const lane of this.lanes.all) {
                if (lane.group === 'session' && lane.name === 'log') continue;
                lane.tones.forEach((each, at) => each === tone && lane.texts[at] !== null && seen.add(Math.round(x(lane.at[at]))));
            }
            return [...seen].map((each) => `M${each} 3h3v14h-3z`).join('');
        };
        this.overview.setAttribute('width', width);
        this.overview.setAttribute('height', 20);
        this.window = svg('rect', {class: 'window', y: 0.5, height: 19});
        this.overview.replaceChildren(svg('text', {class: 'label', x: 6, y: 14}, 'Overview'), svg('rect', {class: 'base', x: left, y: 8, width: Math.max(0, width - left), height: 4}),
            svg('path', {class: 'piece warn', d: strip('warn')}), svg('path', {class: 'piece bad', d: strip('bad')}), this.window);
        this.drawWindow();
    },

    drawWindow() {
        if (!this.window) return;
        const {scale} = this;
        const whole = scale.width - scale.left;
        this.window.setAttribute('x', round(scale.left + (scale.from / scale.units) * whole));
        this.window.setAttribute('width', round(Math.max(4, (whole / scale.perUnit / scale.units) * whole)));
    },

    onOverview(event) {
        const x = event.clientX - this.overview.getBoundingClientRect().left;
        const {scale} = this;
        const unit = ((x - scale.left) / (scale.width - scale.left)) * scale.units;
        scale.from = unit - (scale.width - scale.left) / scale.perUnit / 2;
        scale.limit();
        this.draw();
    },
});
