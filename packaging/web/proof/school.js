// A school of its own for each proof: a server with a copy of the folder, and a person who comes there for the first
// time. NUMBRELA_FOLDER is the unpacked folder.
import { cp, mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, afterEach, before, beforeEach, describe } from "node:test";

import { Server } from "./server.js";
import { launch, patience, Person } from "./visit.js";

export const folder = process.env.NUMBRELA_FOLDER;
const path = "El rincón de la señora Muñoz/numbrela"; // blanks, an accent and an ñ, as folders have them
const recordSize = 154; // bytes of a product in a catalogue
const priceAt = 100; // in a product, behind its name
const shopAt = 104;

// Defines the same proofs for Debian's browsers.
export function inEachBrowser(define) {
    for (const kind of ["chromium", "firefox"]) {
        describe(`In ${kind}`, { concurrency: false, timeout: 40 * patience }, () => {
            const school = new School(kind);
            before(() => school.found());
            after(() => school.vanish());
            beforeEach(() => school.opens(folder));
            afterEach(() => school.closes());
            define(school);
        });
    }
}

class School {
    constructor(kind) {
        this.kind = kind;
    }

    async found() {
        this.rooms = await mkdtemp(join(tmpdir(), "numbrela-web."));
        this.browser = await launch(this.kind, this.rooms);
    }

    async vanish() {
        await this.browser.close();
        await rm(this.rooms, { recursive: true });
    }

    async opens(files, options = { compressed: true }) {
        await this.closes();
        const root = await mkdtemp(join(this.rooms, "school-"));
        this.site = join(root, path);
        await cp(files, this.site, { recursive: true, preserveTimestamps: true });
        this.server = new Server(root, options);
        await this.server.start();
        this.url = `${this.server.origin()}/${encodeURI(path)}/`;
        this.person = await new Person(this.browser, this.kind, this.rooms).enter(this.server);
    }

    async closes() {
        try {
            await this.person?.leave();
        } finally {
            await this.server?.stop();
            this.person = this.server = null;
        }
    }

    // A tab in which the program has started.
    async start(options) {
        const tab = await this.person.tab(options);
        await tab.starts(this.url);
        return tab;
    }

    file(name) {
        return join(this.site, name);
    }

    catalogue() {
        return readFile(this.file("Recursos/productos.dat"));
    }

    async replaceCatalogue(bytes) {
        await writeFile(this.file("Recursos/productos.dat"), bytes);
    }

    // Of the whole tab, or of what is found so and a little around it.
    async picture(tab, name, selector = "html") {
        if (this.kind === "chromium") {
            await tab.draws(name, selector);
        }
    }
}

// The price of the first product in the editor, as that shows it: the products of a shop stand together there.
export function priceOf(catalogue) {
    return String(Number(catalogue.readFloatLE(firstOf(catalogue) + priceAt).toFixed(2))).replace(".", ",");
}

// Of products with such names and prices, all of one shop.
export function catalogueOf(products, shop = "Supermercado") {
    return Buffer.concat(products.map(([name, price]) => {
        const record = Buffer.alloc(recordSize, " ");
        record.write(name, "latin1");
        record.writeFloatLE(price, priceAt);
        record.write(shop, shopAt, "latin1");
        return record;
    }));
}

export function withPrice(catalogue, price) {
    const changed = Buffer.from(catalogue);
    changed.writeFloatLE(price, firstOf(catalogue) + priceAt);
    return changed;
}

function firstOf(catalogue) {
    const name = start => catalogue.toString("latin1", start + shopAt, start + recordSize)
        + catalogue.toString("latin1", start, start + priceAt);
    const starts = Array.from({ length: catalogue.length / recordSize }, (_, index) => index * recordSize);
    return starts.reduce((one, other) => name(one).localeCompare(name(other), "es") <= 0 ? one : other);
}
