// What a teacher does with the catalogue, and the school with its file.
import assert from "node:assert/strict";
import { cp, readFile, readdir, rm, truncate, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { test } from "node:test";

import { catalogueOf, inEachBrowser, priceOf, withPrice } from "./school.js";
import { patience, plainName } from "./visit.js";
import { addsProduct, changesPrice, opensEditor, readsPrice, readsPrices, savesPrice } from "./walks.js";

const save = "Guardar el catálogo en un archivo";
const reset = "Volver al catálogo de la escuela";
const notStored = "El catálogo no se ha podido guardar: este navegador no lo permite o no tiene sitio. "
    + "Para no perder los cambios, guárdelos en un archivo con el enlace de debajo del programa.";

inEachBrowser(school => {
    test("what the editor saves is there after a reload, in this folder alone", async () => {
        const original = await school.catalogue();
        const tab = await school.start();
        await savesPrice(tab, "7,25");
        await tab.reloads();
        await tab.sees("NUMBRELA");
        assert.equal(await readsPrice(tab), "7,25");
        assert.deepEqual(await school.catalogue(), original);
        await cp(school.site, school.file("../otra"), { recursive: true });
        await tab.starts(new URL("../otra/", school.url).href);
        assert.equal(await readsPrice(tab), priceOf(original));
    });

    test("a catalogue that finds no room is not saved, and the old one stays", async () => {
        const tab = await findsNoRoom();
        await school.picture(tab, "no-room");
        await tab.press("Enter");
        await tab.sees("Productos");
        await tab.reloads();
        await tab.sees("NUMBRELA");
        assert.equal(await readsPrice(tab), "7,25");
    });

    test("what found no room is still there for a file when another tab has saved and is not overwritten", async () => {
        const tab = await findsNoRoom();
        await tab.press("Enter");
        await tab.sees("Productos");
        await tab.page.evaluate(() => { // as another tab does
            const stored = Object.keys(localStorage).find(name => name.startsWith("numbrela "));
            const half = localStorage.getItem(stored).slice(0, 154);
            localStorage.clear();
            localStorage.setItem(stored, half);
        });
        await tab.press("Space"); // "Aceptar"
        await tab.sees("Numbrela");
        await tab.press("Space"); // "No"
        await tab.sees("Productos");
        await tab.clicksOnPage(save);
        assert.match((await downloaded()).toString("latin1"), /Castanas/);
    });

    test("what a browser that forbids to store must not keep goes into a file, until the editor gives it up", async () => {
        const original = await school.catalogue();
        const tab = await school.start({ before: () => Object.defineProperty(window, "localStorage", {
            get() { throw new DOMException("forbidden", "SecurityError"); },
        }) });
        await opensEditor(tab);
        await changesPrice(tab, "2,25");
        await tab.press("Space"); // "Aceptar"
        await tab.sees("Numbrela");
        await tab.finds(notStored);
        await tab.clicksOnPage(save);
        assert.equal(priceOf(await downloaded()), "2,25");
        await tab.press("Enter");
        await tab.sees("Productos");
        await tab.closesByTheFrame();
        await tab.sees("La compra");
        await tab.clicksOnPage(save);
        assert.deepEqual(await downloaded(), original);
    });

    test("where the address is plain http, the program starts and keeps what is saved", async () => {
        const tab = await startsOverPlainHttp();
        assert.equal(await tab.page.evaluate(() => isSecureContext), false);
        await savesPrice(tab, "7,25");
        await tab.reloads();
        await tab.sees("NUMBRELA");
        await tab.clicksOnPage(save);
        assert.equal(priceOf(await downloaded()), "7,25");
    });

    test("what is stored stands for the school's catalogue when the server fails to give that", async () => {
        const tab = await startsOverPlainHttp(); // so nothing else is kept
        await savesPrice(tab, "7,25");
        school.server.failing = /productos\.dat$/;
        await tab.reloads();
        await tab.sees("NUMBRELA");
        await tab.clicksOnPage(save);
        assert.equal(priceOf(await downloaded()), "7,25");
        school.person.forgives(/^Failed to load resource: .* 503 /);
    });

    test("a question stays when saving fails meanwhile", async () => {
        const tab = await startsOverPlainHttp({ before: () => {
            const ask = window.fetch;
            window.fetch = (...what) => ask(...what).catch(error => {
                setTimeout(() => { window.hasFailed = true; }); // when the page has done what it does then
                throw error;
            });
        } });
        school.server.hanging = /productos\.dat$/;
        await tab.clicksOnPage(save);
        await chooses(tab, "otro.dat", await school.catalogue());
        await isAsked(tab, /^¿Abrir el catálogo/);
        await school.server.stop();
        await tab.page.waitForFunction(() => window.hasFailed);
        await school.server.start();
        await answers(tab, /^¿Abrir el catálogo/, "Cancelar");
        school.person.forgives(/^Failed to load resource: net::/);
    });

    async function startsOverPlainHttp(options) {
        const tab = await school.person.tab(options);
        await tab.starts(school.url.replace(school.server.origin(), school.server.origin(plainName)));
        return tab;
    }

    test("the browser is asked to keep what has been saved, even when it needs room", async () => {
        const tab = await school.start({ before: () => {
            window.asked = 0;
            navigator.storage.persist = async () => {
                ++window.asked;
                throw new TypeError("refused");
            };
        } });
        assert.equal(await tab.page.evaluate(() => window.asked), 0);
        await savesPrice(tab, "7,25");
        assert.equal(await tab.page.evaluate(() => window.asked), 1);
    });

    test("the largest catalogue finds room", async () => {
        const tab = await school.start();
        const largest = Buffer.concat(Array(32767).fill((await school.catalogue()).subarray(0, 154)));
        await chooses(tab, "otro.dat", largest);
        await tab.startsAnew(() => answers(tab, /^¿Abrir el catálogo/, "Aceptar"));
        await tab.clicksOnPage(save);
        assert.ok((await downloaded()).equals(largest));
    });

    test("a catalogue that the school replaces is there at the next start", replacesCatalogue);

    async function replacesCatalogue() {
        const tab = await school.start();
        await tab.isKept();
        await school.replaceCatalogue(withPrice(await school.catalogue(), 8.5));
        await tab.reloads();
        await tab.sees("NUMBRELA");
        assert.equal(await readsPrice(tab), "8,5");
    }

    test("a catalogue for which the browser has no room to keep it is used all the same", async () => {
        const worker = await readFile(school.file("worker.js"), "utf8");
        await rm(school.file("worker.js.br"), { force: true });
        await rm(school.file("worker.js.gz"), { force: true });
        await writeFile(school.file("worker.js"), worker + `
            const { put } = Cache.prototype;
            Cache.prototype.put = async function (name, response) {
                if (name === catalogue && await this.match(name)) {
                    throw new DOMException("full", "QuotaExceededError");
                }
                return put.call(this, name, response);
            };`);
        await replacesCatalogue();
    });

    for (const [how, redirects] of [["comes", false], ["the server sends on to", true]]) {
        test(`a page that ${how} in the catalogue's place does not become the catalogue`, async () => {
            const price = priceOf(await school.catalogue());
            const tab = await school.start();
            await tab.isKept();
            Object.assign(school.server, { guarded: /productos\.dat$/, redirects });
            await tab.reloads();
            await tab.sees("NUMBRELA");
            assert.equal(await readsPrice(tab), price);
            await school.server.stop();
            await tab.reloads();
            await tab.sees("NUMBRELA");
            assert.equal(await readsPrice(tab), price);
            await school.server.start(); // for a first visit
            await tab.goes(school.url.replace(school.server.origin(), school.server.origin(plainName)));
            await tab.reads("Numbrela no se ha podido cargar: no hay conexión, o en el servidor falta algo.");
        });
    }

    test("products are sorted as in a Spanish dictionary", async () => {
        const names = ["Árbol", "arce", "nuez", "Nuez moscada", "ñame", "oca", "papa", "papá"];
        const prices = names.map((_, index) => index + 1);
        await school.replaceCatalogue(catalogueOf(names.map((name, index) => [name, prices[index]]).reverse()));
        const tab = await school.start();
        assert.deepEqual(await readsPrices(tab, names.length), prices.map(String));
    });

    test("a tab asks before it overwrites what another one has saved", async () => {
        const first = await school.start();
        await opensEditor(first);
        await changesPrice(first, "2,25");
        const second = await school.start();
        await savesPrice(second, "3,25");
        await first.page.bringToFront();
        await first.press("Space"); // "Aceptar"
        await first.sees("Numbrela"); // the question
        await school.picture(first, "two-tabs");
        await first.press("Tab", "Space"); // from "No" to "Sí"
        await first.sees("La compra");
        await second.page.bringToFront();
        await second.reloads();
        await second.sees("NUMBRELA");
        assert.equal(await readsPrice(second), "2,25");
    });

    test("a tab asks before it saves what is no longer there, because another one went back to the school's", async () => {
        const first = await school.start();
        await savesPrice(first, "7,25");
        await first.reloads();
        await first.sees("NUMBRELA");
        await opensEditor(first);
        await changesPrice(first, "2,25");
        const second = await school.start();
        await goesBack(second);
        await first.page.bringToFront();
        await first.press("Space"); // "Aceptar"
        await first.sees("Numbrela"); // the question
        await first.press("Space"); // "No"
        await first.sees("Productos");
        await second.page.bringToFront();
        assert.equal(await readsPrice(second), priceOf(await school.catalogue()));
    });

    test("what this browser has stored stays before what the school replaces, until one goes back", async () => {
        const tab = await school.start();
        await savesPrice(tab, "7,25");
        await school.replaceCatalogue(withPrice(await school.catalogue(), 8.5));
        await tab.reloads();
        await tab.sees("NUMBRELA");
        assert.equal(await readsPrice(tab), "7,25");
        await goesBack(tab);
        assert.equal(await readsPrice(tab), "8,5");
    });

    test("the catalogue goes into a file", async () => {
        const tab = await school.start();
        await tab.clicksOnPage(save);
        assert.deepEqual(await downloaded(), await school.catalogue());
        await savesPrice(tab, "7,25");
        await tab.clicksOnPage(save);
        assert.equal(priceOf(await downloaded()), "7,25");
    });

    test("a catalogue comes from a file, and the school's comes back", async () => {
        const original = await school.catalogue();
        const tab = await school.start();
        await chooses(tab, "otro.dat", withPrice(original, 9.75));
        await school.picture(tab, "open", "#question");
        await answers(tab, "¿Abrir el catálogo «otro.dat»? Numbrela empieza de nuevo, y se pierde lo que no esté guardado.",
            "Cancelar");
        assert.equal(await readsPrice(tab), priceOf(original));
        await chooses(tab, "otro.dat", withPrice(original, 9.75));
        await tab.startsAnew(() => answers(tab, /^¿Abrir el catálogo/, "Aceptar"));
        assert.equal(await readsPrice(tab), "9,75");
        await goesBack(tab);
        assert.equal(await readsPrice(tab), priceOf(original));
        await tab.clicksOnPage(reset);
        await answers(tab, /^Ya se usa el catálogo de la escuela/, "Aceptar");
    });

    test("the question about a file with a long name stays within a narrow page", async () => {
        const tab = await school.start({ width: 390 });
        await chooses(tab, `${"catalogo_de_la_escuela_".repeat(4)}2026.dat`, await school.catalogue());
        await isAsked(tab, /^¿Abrir el catálogo/);
        const [text, width] = await tab.page.$eval("#question", one => [one.scrollWidth, one.clientWidth]);
        assert.ok(text <= width, `a text of ${text} pixels in a question of ${width}`);
    });

    test("whatever the editor saves into a file comes back from it", async () => {
        const tab = await school.start();
        await savesPrice(tab, "-1"); // as it takes it
        await tab.clicksOnPage(save);
        for (const bytes of [await downloaded(), catalogueOf([["Pan\ty\r\nsal", Infinity]])]) {
            await chooses(tab, "otro.dat", bytes);
            await answers(tab, /^¿Abrir el catálogo/, "Cancelar");
        }
    });

    test("a file that is no catalogue is refused", async () => {
        const tab = await school.start();
        const original = await school.catalogue();
        const others = [Buffer.alloc(0), original.subarray(1), await readFile(school.file("icon-192.png")),
            Buffer.alloc(154, "\x1b"), withPrice(original, NaN)];
        for (const bytes of others) {
            await chooses(tab, "otro.dat", bytes);
            await answers(tab, "El archivo no es un catálogo de Numbrela.", "Aceptar");
        }
        await chooses(tab, "otro.dat", Buffer.alloc(32768 * 154));
        await answers(tab, "El catálogo tiene más de 32 767 productos.", "Aceptar");
    });

    test("a file that cannot be read, or is as large as a film, is refused", async () => {
        const tab = await school.start();
        const film = join(school.rooms, "film.dat");
        await writeFile(film, "");
        await truncate(film, 154 * 20_000_000); // 3 GB, of which nothing is on the disk
        await (await tab.page.$("#file")).uploadFile(film);
        await answers(tab, "El catálogo tiene más de 32 767 productos.", "Aceptar");
        // As when a stick is pulled out.
        await tab.page.evaluate(() => {
            Blob.prototype.arrayBuffer = () => Promise.reject(new DOMException("gone", "NotReadableError"));
        });
        for (let time = 0; time < 2; ++time) { // the same file can be chosen again
            await chooses(tab, "otro.dat", await school.catalogue());
            await answers(tab, "El archivo no se puede leer.", "Aceptar");
        }
    });

    async function chooses(tab, name, bytes) {
        const file = join(school.rooms, name);
        await writeFile(file, bytes);
        await (await tab.page.$("#file")).uploadFile(file);
    }

    // What has just been put into the downloads, where it does not stay.
    async function downloaded() {
        const file = join(school.rooms, "productos.dat");
        for (const end = Date.now() + patience; Date.now() < end;) {
            const names = await readdir(school.rooms);
            if (names.includes("productos.dat") && !names.some(name => /\.(crdownload|part)$/.test(name))) {
                const bytes = await readFile(file);
                if (bytes.length > 0) {
                    await rm(file);
                    return bytes;
                }
            }
            await new Promise(done => setTimeout(done, 50)); // and looks again
        }
        throw new Error("waited in vain for the download");
    }

    // Who adds a product that can no longer be stored is told so.
    async function findsNoRoom() {
        const tab = await school.start();
        await savesPrice(tab, "7,25");
        await tab.page.evaluate(fillStorage);
        await opensEditor(tab);
        await addsProduct(tab, "Castanas", "1,25", "Supermercado");
        await tab.sees("Numbrela");
        await tab.finds(notStored);
        return tab;
    }
});

async function goesBack(tab) {
    await tab.clicksOnPage(reset);
    await tab.startsAnew(() =>
        answers(tab, /^¿Volver al catálogo de la escuela\? Se borra el guardado/, "Aceptar"));
}

async function answers(tab, question, button) {
    await isAsked(tab, question);
    await tab.clicksOnPage(button);
}

async function isAsked(tab, question) {
    const pattern = question instanceof RegExp ? question.source : `^${question.replace(/[.?]/g, "\\$&")}$`;
    await tab.until(`the question '${question}'`, source => document.getElementById("question").open
        && new RegExp(source).test(document.getElementById("asked").textContent), pattern);
}

// Runs in the page: takes all room that is left there.
function fillStorage() {
    for (let size = 1 << 22; size >= 1; size /= 2) {
        for (let time = 0; time < 2; ++time) {
            try {
                localStorage.setItem(`room ${size} ${time}`, "x".repeat(size));
            } catch { // no room for so much
            }
        }
    }
}
