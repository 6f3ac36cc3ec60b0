// SPDX-License-Identifier: Apache-2.0
// A list of any length. Only the rows in sight are elements. All rows have the same height.

class VirtualList {
    // `render` returns the content of a row as children; `choose` is called with the chosen row.
    constructor(label, rowHeight, render, choose) {
        this.rowHeight = rowHeight;
        this.render = render;
        this.choose = choose;
        this.rows = [];
        this.chosen = -1;
        this.space = el('div', {class: 'list-space', role: 'presentation'});
        this.element = el('div', {
            class: 'list', role: 'listbox', tabindex: '0', 'aria-label': label,
            onkeydown: (event) => this.onKey(event),
        }, this.space);
        this.id = VirtualList.next = (VirtualList.next || 0) + 1;
        this.draw = onceAFrame(() => this.drawNow());
        this.element.addEventListener('scroll', this.draw);
        new ResizeObserver(this.draw).observe(this.element);
        forPaper(() => this.drawNow());
    }

    show(rows) {
        this.rows = rows;
        this.chosen = Math.min(this.chosen, rows.length - 1);
        this.drawNow();
    }

    // Paper has no scroll bar: it gets the rows from the first one on, up to a limit for printers.
    drawNow() {
        const onPaper = paper.on;
        const most = 3000;
        const first = onPaper ? 0 : Math.max(0, Math.floor(this.element.scrollTop / this.rowHeight) - 4);
        const seen = onPaper ? most : Math.ceil((this.element.clientHeight || 600) / this.rowHeight) + 8;
        const last = Math.min(this.rows.length, first + seen);
        this.space.style.height = `${(onPaper ? last : this.rows.length) * this.rowHeight}px`;
        const nodes = [];
        for (let i = first; i < last; ++i) nodes.push(this.rowElement(i));
        if (onPaper && last < this.rows.length) nodes.push(el('p', {class: 'muted'}, `${(this.rows.length - last).toLocaleString('en')} more rows are not printed: search or filter to choose rows.`));
        this.space.replaceChildren(...nodes);
        if (this.chosen >= first && this.chosen < last) this.element.setAttribute('aria-activedescendant', this.rowId(this.chosen));
        else this.element.removeAttribute('aria-activedescendant');
    }

    rowId(index) { return `row-${this.id}-${index}`; }

    rowElement(index) {
        const row = this.rows[index];
        const heading = row.heading !== undefined;
        return el('div', {
            id: this.rowId(index), class: `row ${row.tone || ''}${heading ? ' heading' : ''}`,
            role: heading ? 'presentation' : 'option',
            'aria-selected': heading ? null : String(index === this.chosen),
            'aria-setsize': heading ? null : this.rows.length, 'aria-posinset': heading ? null : index + 1,
            style: `top:${index * this.rowHeight}px;height:${this.rowHeight}px`,
            onclick: () => heading || this.select(index),
        }, this.render(row));
    }

    select(index) {
        if (index < 0 || index >= this.rows.length) return;
        this.chosen = index;
        const top = index * this.rowHeight;
        const view = this.element;
        if (top < view.scrollTop) view.scrollTop = top;
        if (top + this.rowHeight > view.scrollTop + view.clientHeight) view.scrollTop = top + this.rowHeight - view.clientHeight;
        this.drawNow();
        this.choose(this.rows[index]);
    }

    onKey(event) {
        const page = Math.max(1, Math.floor(this.element.clientHeight / this.rowHeight) - 1);
        const steps = {ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page, Home: -this.rows.length, End: this.rows.length};
        if (!(event.key in steps)) return;
        event.preventDefault();
        this.select(this.nextRow(this.chosen + steps[event.key], Math.sign(steps[event.key])));
    }

    // Returns the nearest row from there on that is not a heading.
    nextRow(index, direction) {
        const last = this.rows.length - 1;
        let next = Math.min(Math.max(index, 0), last);
        if (index <= 0 && direction < 0) direction = 1;
        if (index >= last && direction > 0) direction = -1;
        while (this.rows[next] && this.rows[next].heading !== undefined && next + direction >= 0 && next + direction <= last)
            next += direction;
        return this.rows[next] && this.rows[next].heading === undefined ? next : this.chosen;
    }
}
