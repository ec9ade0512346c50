// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// The data comes as scripts that call rvopenPage() and rvopenDetails(), since a page from disk may
// load nothing else. Texts of presets come into the page as text alone, never as markup.
"use strict";

(() => {
    /// Pictures that come into the page at one time.
    const PART = 120;
    /// Milliseconds without a key before a search starts.
    const PAUSE = 80;

    // --- Texts and colours -----------------------------------------------------------------------

    /// Without accents and case, as the program folds the texts of the data.
    function folded(text) {
        return text
            .normalize("NFKD")
            .replace(/\p{Mn}/gu, (mark) => (mark.length > 1 ? mark : ""))
            .toLowerCase()
            .replace(/ς/g, "σ")
            .replace(/ß/g, "ss");
    }

    /// CIE L*a*b* under D65 of "#rrggbb", by the primaries of IEC 61966-2-1.
    function labOf(hex) {
        const [r, g, b] = [1, 3, 5].map((at) => {
            const value = parseInt(hex.slice(at, at + 2), 16) / 255;
            return value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4;
        });
        const edge = 6 / 29;
        const compressed = (t) => (t > edge ** 3 ? Math.cbrt(t) : t / (3 * edge ** 2) + 4 / 29);
        const x = compressed((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505);
        const y = compressed(0.2126 * r + 0.7152 * g + 0.0722 * b);
        const z = compressed((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.089);
        return [116 * y - 16, 500 * (x - y), 200 * (y - z)];
    }

    /// CIEDE2000, after G. Sharma, W. Wu and E. N. Dalal, Color Research and Application 30 (2005).
    function colourDistance([l1, a1, b1], [l2, a2, b2]) {
        const radians = (degrees) => (degrees * Math.PI) / 180;
        const saturation = (chroma) => Math.sqrt(chroma ** 7 / (chroma ** 7 + 25 ** 7));
        const hueOf = (a, b) => {
            const hue = a === 0 && b === 0 ? 0 : (Math.atan2(b, a) * 180) / Math.PI;
            return hue < 0 ? hue + 360 : hue;
        };
        const stretch = 1.5 - 0.5 * saturation((Math.hypot(a1, b1) + Math.hypot(a2, b2)) / 2);
        const c1 = Math.hypot(stretch * a1, b1);
        const c2 = Math.hypot(stretch * a2, b2);
        const h1 = hueOf(stretch * a1, b1);
        const h2 = hueOf(stretch * a2, b2);
        const hasGrey = c1 * c2 === 0;
        let turn = hasGrey ? 0 : h2 - h1;
        if (turn > 180) turn -= 360;
        else if (turn < -180) turn += 360;
        let hue = h1 + h2;
        if (!hasGrey) {
            if (Math.abs(h1 - h2) > 180) hue += hue < 360 ? 360 : -360;
            hue /= 2;
        }
        const chroma = (c1 + c2) / 2;
        const fromMiddle = ((l1 + l2) / 2 - 50) ** 2;
        const t =
            1 -
            0.17 * Math.cos(radians(hue - 30)) +
            0.24 * Math.cos(radians(2 * hue)) +
            0.32 * Math.cos(radians(3 * hue + 6)) -
            0.2 * Math.cos(radians(4 * hue - 63));
        const dl = (l2 - l1) / (1 + (0.015 * fromMiddle) / Math.sqrt(20 + fromMiddle));
        const dc = (c2 - c1) / (1 + 0.045 * chroma);
        const dh =
            (2 * Math.sqrt(c1 * c2) * Math.sin(radians(turn / 2))) / (1 + 0.015 * chroma * t);
        const blue = 30 * Math.exp(-(((hue - 275) / 25) ** 2));
        const rotation = -2 * saturation(chroma) * Math.sin(radians(2 * blue));
        return Math.sqrt(dl * dl + dc * dc + dh * dh + rotation * dc * dh);
    }

    // --- What there is ---------------------------------------------------------------------------

    const at = (id) => document.getElementById(id);
    const labs = new Map();
    /// Files of details that were asked for: a list of details, or who waits for it.
    const loaded = new Map();
    const waiting = new Map();
    let page = { items: [], files: [], details: [], detailsInFile: 1 };
    /// Numbers of items by the links to them.
    let links = new Map();
    /// Numbers of the items that are to be seen, in order.
    let shown = [];
    /// How many of them are in the page by now.
    let inPage = 0;
    /// That of the details; below 0 without.
    let opened = -1;
    let timer = 0;

    function element(tag, text, className) {
        const made = document.createElement(tag);
        if (text !== undefined) made.textContent = text;
        if (className) made.className = className;
        return made;
    }

    function labOfItem(hex) {
        if (!labs.has(hex)) labs.set(hex, labOf(hex));
        return labs.get(hex);
    }

    /// The first with a reference name has it as its link, others their file and path.
    function makeLinks() {
        links = new Map();
        page.items.forEach((item, number) => {
            const short = item.refname && new URLSearchParams({ ref: item.refname }).toString();
            const long = new URLSearchParams({ file: page.files[item.file], path: item.path });
            item.link = short && !links.has(short) ? short : long.toString();
            links.set(item.link, number);
            links.set(long.toString(), number);
        });
    }

    // --- Filters ---------------------------------------------------------------------------------

    function fill(select, values) {
        for (const value of [...new Set(values)].filter(Boolean).sort()) {
            const option = element("option", value);
            option.value = value;
            select.append(option);
        }
    }

    function filter() {
        const words = folded(at("search").value).split(/\s+/).filter(Boolean);
        const kind = at("kind").value;
        const category = at("category").value;
        const colour = at("by-colour").checked ? labOf(at("colour").value) : null;
        const within = Number(at("within").value) || 0;
        const distances = new Map();
        shown = [];
        page.items.forEach((item, number) => {
            if (kind && item.kind !== kind) return;
            if (category && item.category !== category) return;
            if (!words.every((word) => item.search.includes(word))) return;
            if (colour) {
                const nearest = Math.min(
                    ...item.colours.map((hex) => colourDistance(colour, labOfItem(hex))),
                );
                if (!(nearest <= within)) return;
                distances.set(number, nearest);
            }
            shown.push(number);
        });
        // Sorting is stable: of equal distance, as in the documents.
        if (colour) shown.sort((a, b) => distances.get(a) - distances.get(b));
        at("pictures").replaceChildren();
        inPage = 0;
        showMore();
        const all = page.items.length;
        showMoreWhileInSight();
        at("status").textContent =
            shown.length === all ? `${all} presets` : `${shown.length} of ${all} presets`;
    }

    function filterSoon() {
        clearTimeout(timer);
        timer = setTimeout(filter, PAUSE);
    }

    // --- Pictures --------------------------------------------------------------------------------

    function tileOf(number) {
        const item = page.items[number];
        const tile = element("a", undefined, "tile");
        tile.href = `#${item.link}`;
        tile.dataset.number = number;
        tile.title = item.name;
        tile.tabIndex = -1;
        const frame = element("span", undefined, "frame");
        if (item.picture) {
            const image = element("img");
            image.loading = "lazy";
            image.decoding = "async";
            image.alt = "";
            image.src = `pictures/${encodeURIComponent(item.picture)}`;
            frame.append(image);
        } else {
            frame.append("No picture");
        }
        tile.append(frame, element("span", item.name || item.kind, "name"));
        if (number === opened) tile.setAttribute("aria-current", "true");
        return tile;
    }

    function headingOf(number) {
        const item = page.items[number];
        return page.files.length > 1 ? `${page.files[item.file]}: ${item.heading}` : item.heading;
    }

    function showMore() {
        const list = at("pictures");
        const part = document.createDocumentFragment();
        const end = Math.min(inPage + PART, shown.length);
        const isInOrder = !at("by-colour").checked;
        for (let i = inPage; i < end; ++i) {
            const heading = headingOf(shown[i]);
            if (isInOrder && (i === 0 || heading !== headingOf(shown[i - 1]))) {
                const line = element("li", undefined, "heading");
                line.append(element("h2", heading));
                part.append(line);
            }
            const line = element("li");
            line.append(tileOf(shown[i]));
            part.append(line);
        }
        const isFirst = inPage === 0;
        list.append(part);
        inPage = end;
        if (isFirst) setStop(tiles()[0]);
        at("more").hidden = inPage === shown.length;
    }

    function showMoreWhileInSight() {
        const limit = window.innerHeight * 2;
        while (inPage < shown.length && at("more").getBoundingClientRect().top < limit) showMore();
    }

    const tiles = () => [...at("pictures").getElementsByClassName("tile")];

    /// The one that the tab key leads to.
    function setStop(tile) {
        for (const other of at("pictures").querySelectorAll('.tile[tabindex="0"]'))
            other.tabIndex = -1;
        if (tile) tile.tabIndex = 0;
    }

    function columns() {
        const all = tiles();
        const first = all.length ? all[0].offsetTop : 0;
        const next = all.findIndex((tile) => tile.offsetTop !== first);
        return next < 0 ? Math.max(all.length, 1) : next;
    }

    /// The nearest in the row above or below, which a heading may have made short.
    function inRow(all, from, step) {
        const top = all[from].offsetTop;
        const left = all[from].offsetLeft;
        let i = from + step;
        while (i >= 0 && i < all.length && all[i].offsetTop === top) i += step;
        if (i < 0 || i >= all.length) return from;
        const row = all[i].offsetTop;
        let best = i;
        for (; i >= 0 && i < all.length && all[i].offsetTop === row; i += step) {
            if (Math.abs(all[i].offsetLeft - left) < Math.abs(all[best].offsetLeft - left)) best = i;
        }
        return best;
    }

    function moveAmongPictures(event) {
        if (event.ctrlKey || event.altKey || event.metaKey) return;
        const tile = event.target.closest(".tile");
        if (!tile) return;
        const from = tiles().indexOf(tile);
        if (event.key === "End") while (inPage < shown.length) showMore();
        else if (from + 2 * columns() >= inPage && inPage < shown.length) showMore();
        const all = tiles();
        const to = {
            ArrowRight: () => Math.min(from + 1, all.length - 1),
            ArrowLeft: () => Math.max(from - 1, 0),
            ArrowDown: () => inRow(all, from, 1),
            ArrowUp: () => inRow(all, from, -1),
            Home: () => 0,
            End: () => all.length - 1,
        }[event.key];
        if (!to) return;
        event.preventDefault();
        const next = all[to()];
        setStop(next);
        next.focus();
    }

    // --- Details ---------------------------------------------------------------------------------

    function swatch(hex) {
        const made = element("span", undefined, "swatch");
        made.style.background = hex;
        return made;
    }

    function addFact(list, name, value) {
        if (!value) return;
        list.append(element("dt", name), element("dd", value));
    }

    function tableOf(rows) {
        const table = element("table");
        if (rows[0][0]) table.append(element("caption", rows[0][0]));
        for (const [, name, label, text, unit, colour] of rows) {
            const row = element("tr");
            const head = element("th", label);
            head.scope = "row";
            head.title = name;
            const value = element("td");
            if (colour) value.append(swatch(colour));
            value.append(text);
            if (unit) value.append(" ", element("span", unit, "unit"));
            row.append(head, value);
            table.append(row);
        }
        return table;
    }

    function showValues(details) {
        at("values-status").textContent = details.values.length ? "" : "It has none.";
        const groups = [];
        for (const row of details.values) {
            if (groups.length && groups[groups.length - 1][0][0] === row[0])
                groups[groups.length - 1].push(row);
            else groups.push([row]);
        }
        at("values").replaceChildren(...groups.map(tableOf));
        at("textures").hidden = details.textures.length === 0;
        at("texture-list").replaceChildren(...details.textures.map((text) => element("li", text)));
    }

    /// Calls back with the details of the item once their file is there.
    function withDetails(number, use) {
        const file = Math.floor(number / page.detailsInFile);
        const place = number % page.detailsInFile;
        if (loaded.has(file)) {
            use(loaded.get(file)[place]);
            return;
        }
        const known = waiting.has(file);
        if (!known) waiting.set(file, []);
        waiting.get(file).push((list) => use(list[place]));
        if (known) return;
        const script = element("script");
        script.src = `details/${encodeURIComponent(page.details[file])}`;
        script.onerror = () => {
            waiting.delete(file);
            at("values-status").textContent = "The values could not be loaded.";
        };
        script.dataset.file = file;
        document.head.append(script);
    }

    function takeDetails(list) {
        const script = document.currentScript;
        const file = Number(script.dataset.file);
        loaded.set(file, list);
        for (const use of waiting.get(file) || []) use(list);
        waiting.delete(file);
        script.remove();
    }

    function open(number) {
        const item = page.items[number];
        opened = number;
        at("details-name").textContent = item.name || item.kind;
        const picture = at("details-picture");
        picture.hidden = !item.picture;
        if (item.picture) picture.src = `pictures/${encodeURIComponent(item.picture)}`;
        else picture.removeAttribute("src");
        const facts = at("facts");
        facts.replaceChildren();
        addFact(facts, "Kind", item.kind);
        addFact(facts, "Sub-category", item.subcategory);
        addFact(facts, "Category", item.category);
        addFact(facts, "Description", item.description);
        addFact(facts, "Reference name", item.refname);
        addFact(facts, "Under", item.heading);
        addFact(facts, "File", page.files[item.file]);
        addFact(facts, "Path", item.path);
        at("values").replaceChildren();
        at("textures").hidden = true;
        at("values-status").textContent = "Loading …";
        withDetails(number, (details) => {
            if (opened === number) showValues(details);
        });
        markOpened();
        document.body.classList.add("with-details");
        at("details").hidden = false;
        at("details").scrollTop = 0;
        at("close").focus();
    }

    function markOpened() {
        for (const tile of at("pictures").querySelectorAll('.tile[aria-current="true"]'))
            tile.removeAttribute("aria-current");
        const tile = at("pictures").querySelector(`.tile[data-number="${opened}"]`);
        if (tile) tile.setAttribute("aria-current", "true");
    }

    function close() {
        if (opened < 0) return;
        const tile = at("pictures").querySelector(`.tile[data-number="${opened}"]`);
        opened = -1;
        at("details").hidden = true;
        document.body.classList.remove("with-details");
        markOpened();
        if (tile) {
            setStop(tile);
            tile.focus();
        } else {
            at("search").focus();
        }
        if (location.hash) history.replaceState(null, "", location.pathname + location.search);
    }

    /// As the address says.
    function follow() {
        const wanted = new URLSearchParams(location.hash.slice(1)).toString();
        const number = links.get(wanted);
        if (number === undefined) close();
        else if (number !== opened) open(number);
    }

    // --- Start -----------------------------------------------------------------------------------

    function onKey(event) {
        if (event.key === "Escape" && opened >= 0) {
            event.preventDefault();
            close();
        } else if (
            event.key === "/" &&
            !event.ctrlKey &&
            !event.altKey &&
            !event.metaKey &&
            !event.target.closest("input, select")
        ) {
            event.preventDefault();
            at("search").focus();
            at("search").select();
        }
    }

    function start(data) {
        page = data;
        document.title = page.title;
        at("title").textContent = page.title;
        makeLinks();
        fill(at("kind"), page.items.map((item) => item.kind));
        fill(at("category"), page.items.map((item) => item.category));
        const filters = at("filters");
        filters.addEventListener("submit", (event) => event.preventDefault());
        filters.addEventListener("reset", () => setTimeout(filter));
        filters.addEventListener("input", (event) => {
            if (event.target === at("colour")) at("by-colour").checked = true;
            filterSoon();
        });
        at("pictures").addEventListener("keydown", moveAmongPictures);
        at("pictures").addEventListener("focusin", (event) => {
            setStop(event.target.closest(".tile"));
        });
        // The address may be that of the picture already, after its details were closed.
        at("pictures").addEventListener("click", (event) => {
            const tile = event.target.closest(".tile");
            if (tile && tile.hash === location.hash) open(Number(tile.dataset.number));
        });
        at("close").addEventListener("click", close);
        document.addEventListener("keydown", onKey);
        window.addEventListener("hashchange", follow);
        window.addEventListener("scroll", showMoreWhileInSight, { passive: true });
        window.addEventListener("resize", showMoreWhileInSight);
        filter();
        follow();
    }

    window.rvopenPage = start;
    window.rvopenDetails = takeDetails;
    /// For those who test the page.
    window.rvopenParts = { folded, labOf, colourDistance };
})();
