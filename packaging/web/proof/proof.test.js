// The proof of the web folder, in both browsers: what a pupil, a teacher and a school do with it.
// NUMBRELA_FOLDER is the unpacked folder; NUMBRELA_EMPTY one with an empty window in the program's place;
// NUMBRELA_PICTURES is where pictures of it go.
import assert from "node:assert/strict";
import { cp, mkdir, mkdtemp, readFile, readdir, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, afterEach, before, beforeEach, describe, test } from "node:test";

import { Server } from "./server.js";
import { launch, patience, Person } from "./visit.js";
import { changesPrice, enters, readsPrice, savesPrice, toShop, worksAll } from "./walks.js";

const { NUMBRELA_FOLDER: folder, NUMBRELA_EMPTY: empty, NUMBRELA_PICTURES: pictures } = process.env;
const path = "El rincón de la señora Muñoz/numbrela"; // blanks, an accent and an ñ, as folders have them
const schoolFile = "Recursos/productos.dat";
const mostBytes = 4_500_000; // over the wire, at a first visit, with brotli
const slowestStart = 1.3; // times that of an empty window
const recordSize = 154; // bytes of a product in a catalogue; its price stands at 100

function priceOf(catalogue) {
    return catalogue.readFloatLE(100).toFixed(2).replace(".", ",");
}

for (const kind of ["chromium", "firefox"]) {
    describe(`In ${kind}`, { concurrency: false, timeout: 20 * patience }, () => {
        let rooms, browser, server, person, site, url;

        before(async () => {
            rooms = await mkdtemp(join(tmpdir(), "numbrela-web."));
            browser = await launch(kind, rooms);
        });
        after(async () => {
            await browser.close();
            await rm(rooms, { recursive: true });
        });
        beforeEach(() => serve(folder));
        afterEach(leave);

        async function leave() {
            try {
                await person?.leave();
            } finally {
                await server?.stop();
                person = server = null;
            }
        }

        // A school of its own, whose server hands out a copy of these files, and a person who comes there.
        async function serve(files, options = { compressed: true }) {
            await leave();
            const root = await mkdtemp(join(rooms, "school-"));
            site = join(root, path);
            await cp(files, site, { recursive: true });
            server = new Server(root, options);
            await server.start();
            url = `http://127.0.0.1:${server.port}/${encodeURI(path)}/`;
            person = await new Person(browser, kind, rooms).enter(server);
        }

        const picture = async (tab, name) => {
            if (kind === "chromium") {
                await mkdir(pictures, { recursive: true });
                await tab.page.screenshot({ path: join(pictures, `web-${name}.png`) });
            }
        };

        test("an exercise of each activity and a purchase are done by keys, and the end is said", async () => {
            const tab = await person.tab();
            await tab.starts(url);
            await picture(tab, "menu");
            await worksAll(tab);
            await tab.reads("Numbrela ha terminado.");
            await picture(tab, "ended");
            await tab.page.click("#again");
            await tab.sees("NUMBRELA");
        });

        test("a first visit takes no more over the wire than is allowed, and tells how far it is", async () => {
            const tab = await person.tab({
                before: () => addEventListener("DOMContentLoaded", () => {
                    window.percents = [];
                    new MutationObserver(() => window.percents.push(document.getElementById("progress").value))
                        .observe(document.getElementById("percent"), { childList: true });
                }),
            });
            await tab.starts(url);
            await tab.isKept();
            const bytes = server.bytesSent();
            console.log(`${kind}: ${bytes} bytes over the wire at a first visit`);
            assert.ok(bytes <= mostBytes, `${bytes} bytes`);
            const percents = await tab.page.evaluate(() => window.percents);
            assert.deepEqual(percents, [...percents].sort((one, other) => one - other));
            assert.equal(percents.at(-1), 100);
            assert.ok(new Set(percents).size > 3, `only ${percents}`);
        });

        test("a server that knows nothing of compression is asked for the compressed file", async () => {
            await serve(folder, { compressed: false });
            const tab = await person.tab();
            await tab.starts(url);
            assert.ok(server.requests.some(name => name.endsWith("numbrela.wasm.gz")));
        });

        test("it starts without a network after the first visit", async () => {
            const tab = await person.tab();
            await tab.starts(url);
            await tab.isKept();
            await server.stop();
            await tab.reloads();
            await tab.sees("NUMBRELA");
            assert.equal(await readsPrice(tab), priceOf(await readFile(join(site, schoolFile))));
            await server.start();
        });

        test("a new version takes the place of the old one as a whole", async () => {
            let tab = await person.tab();
            await tab.starts(url);
            await tab.isKept();
            await tab.page.close();
            const version = (await readFile(join(site, "worker.js"), "utf8")).match(/"\?(.*)"/)[1];
            for (const name of (await readdir(site)).filter(name => /\.(js|html)$/.test(name))) {
                const file = join(site, name);
                const text = await readFile(file, "utf8");
                if (text.includes(version)) {
                    await writeFile(file, text.replaceAll(version, "otra"));
                    await rm(file + ".br", { force: true });
                }
            }
            tab = await person.tab();
            await tab.starts(url);
            await tab.until("the new version", async () => (await navigator.serviceWorker.getRegistration()).waiting);
            assert.ok((await scriptsOf(tab)).every(name => name.endsWith(version)), "the old version is whole");
            await tab.page.close();
            tab = await person.tab();
            await tab.starts(url);
            assert.ok((await scriptsOf(tab)).every(name => name.endsWith("?otra")), "the new version is whole");
            assert.equal((await tab.page.evaluate(() => caches.keys())).length, 1);
        });

        const scriptsOf = tab => tab.page.evaluate(() => performance.getEntriesByType("resource").map(one => one.name)
            .filter(name => /\.(js|wasm)\?/.test(name)));

        test("what the editor saves is there after a reload, in this folder alone", async () => {
            const before = await readFile(join(site, schoolFile));
            const tab = await person.tab();
            await tab.starts(url);
            await savesPrice(tab, "7,25");
            await tab.reloads();
            await tab.sees("NUMBRELA");
            assert.equal(await readsPrice(tab), "7,25");
            assert.deepEqual(await readFile(join(site, schoolFile)), before);
            await cp(site, join(site, "../otra"), { recursive: true });
            await tab.starts(new URL("../otra/", url).href);
            assert.equal(await readsPrice(tab), priceOf(before));
        });

        test("a catalogue that finds no room is not saved, and the old one stays", async () => {
            const tab = await person.tab();
            await tab.starts(url);
            await savesPrice(tab, "7,25");
            await tab.page.evaluate(() => {
                for (let size = 1 << 22; size >= 1; size /= 2) { // all room that is left
                    for (let time = 0; time < 2; ++time) {
                        try {
                            localStorage.setItem(`room ${size} ${time}`, "x".repeat(size));
                        } catch { // no room for so much
                        }
                    }
                }
            });
            await tab.press(...toShop);
            await tab.sees("La compra");
            await tab.press("F3");
            await tab.sees("Productos");
            for (let time = 0; time < 3; ++time) { // a product more
                await tab.press("End", "Tab", "Tab", "Tab", "Tab", "Space");
                await tab.sees("Añadir producto");
                await tab.page.screenshot({ path: "/tmp/wp/x.png" });
                break;
            }
        });

        test("a catalogue that the school replaces is there at the next start", async () => {
            const tab = await person.tab();
            await tab.starts(url);
            await tab.isKept();
            const catalogue = await readFile(join(site, schoolFile));
            catalogue.writeFloatLE(8.5, 100);
            await writeFile(join(site, schoolFile), catalogue);
            await tab.reloads();
            await tab.sees("NUMBRELA");
            assert.equal(await readsPrice(tab), "8,50");
        });

        test("a tab asks before it overwrites what another one has saved", async () => {
            const first = await person.tab();
            await first.starts(url);
            await changesPriceUpToTheEnd(first, "2,25");
            const second = await person.tab();
            await second.starts(url);
            await savesPrice(second, "3,25");
            await first.page.bringToFront();
            await first.press("Space"); // "Aceptar"
            await first.sees("Numbrela"); // the question
            await picture(first, "two-tabs");
            await first.press("Tab", "Space"); // from "No" to "Sí"
            await first.sees("La compra");
            await second.page.bringToFront();
            await second.reloads();
            await second.sees("NUMBRELA");
            assert.equal(await readsPrice(second), "2,25");
        });

        test("an error that ends the program is said, and it starts again at a click", async () => {
            const tab = await person.tab();
            await tab.starts(url);
            await tab.press("Tab", "Tab", "Tab", "Tab", "Tab", "Enter");
            const title = "multiplicar y dividir por 10, 100, 1000";
            await tab.sees(title);
            await tab.press("F2");
            await tab.sees("Insertar factor 1");
            await tab.press("ctrl+a");
            await tab.write("x");
            await tab.press("Enter");
            await tab.sees("Numbrela"); // the program's own words
            await picture(tab, "error");
            await tab.press("Enter");
            await tab.reads("Numbrela se ha cerrado por un error.");
            await picture(tab, "failed");
            await tab.page.click("#again");
            await tab.sees("NUMBRELA");
        });

        test("a browser that cannot run it is told so", async () => {
            const tab = await person.tab({ before: () => delete window.WebAssembly });
            await tab.goes(url);
            await tab.reads("Este navegador no puede abrir Numbrela: hace falta una versión actual de Chrome, Edge, "
                + "Firefox o Safari.");
        });

        test("a program that is not all there is not started, and this is said", async () => {
            await rm(join(site, "numbrela.wasm"));
            await rm(join(site, "numbrela.wasm.br"));
            const tab = await person.tab();
            await tab.goes(url);
            await tab.reads("Numbrela no se ha podido cargar: no hay conexión, o en el servidor falta algo.");
            person.errors = person.errors.filter(error => !error.includes("404"));
        });

        test("the keys that a browser would take are the program's, and F6 leads to the links and back", async () => {
            const tab = await person.tab();
            await tab.starts(url);
            await tab.page.evaluate(() => {
                window.keys = [];
                addEventListener("keydown", event => window.keys.push(event), { capture: true });
            });
            const taken = ["F1", "F2", "F3", "F5", "F7", "F10", "alt+z"];
            await tab.press(...taken);
            const kept = await tab.page.evaluate(() => window.keys.filter(one => one.key !== "Alt")
                .map(one => one.defaultPrevented));
            assert.deepEqual(kept, taken.map(() => true));
            await tab.press("Escape", "Escape"); // out of a menu that F10 may have opened
            await tab.press("F6");
            assert.equal(await tab.page.evaluate(() => document.activeElement.id), "save");
            await tab.press("F6", "Enter");
            await tab.sees("SUMAS");
        });

        test("a catalogue goes into a file, and from a file into the browser, and back to the school's", async () => {
            const school = await readFile(join(site, schoolFile));
            const tab = await person.tab();
            await tab.starts(url);
            await tab.page.click("#save");
            assert.deepEqual(await downloaded(), school);

            const chooser = await tab.page.$("#file");
            const other = Buffer.from(school);
            other.writeFloatLE(9.75, 100);
            const files = { other, cut: school.subarray(0, recordSize - 1), picture: await readFile(join(site, "icon-192.png")) };
            for (const [name, bytes] of Object.entries(files)) {
                await writeFile(join(rooms, `${name}.dat`), bytes);
            }
            for (const name of ["cut", "picture"]) {
                await chooser.uploadFile(join(rooms, `${name}.dat`));
                await answers(tab, /no es un catálogo de Numbrela/, "yes");
            }
            await chooser.uploadFile(join(rooms, "other.dat"));
            await picture(tab, "open");
            await answers(tab, /¿Abrir el catálogo «other.dat»\? Numbrela empieza de nuevo/, "no");
            assert.equal(await readsPrice(tab), priceOf(school));
            await (await tab.page.$("#file")).uploadFile(join(rooms, "other.dat"));
            await restarts(tab, () => answers(tab, /«other.dat»/, "yes"));
            assert.equal(await readsPrice(tab), "9,75");
            await tab.page.click("#save");
            assert.deepEqual(await downloaded(), other);
            await tab.page.click("#reset");
            await restarts(tab, () => answers(tab, /¿Volver al catálogo de la escuela\? Se pierde/, "yes"));
            assert.equal(await readsPrice(tab), priceOf(school));
            await tab.page.click("#reset");
            await answers(tab, /Ya se usa el catálogo de la escuela/, "yes");
        });

        async function answers(tab, question, button) {
            await tab.until(`the question ${question}`, source => document.getElementById("question").open
                && new RegExp(source).test(document.getElementById("asked").textContent), question.source);
            await tab.page.click(`#${button}`);
        }

        async function restarts(tab, act) {
            await Promise.all([tab.page.waitForNavigation({ waitUntil: "domcontentloaded" }), act()]);
            await tab.sees("NUMBRELA");
        }

        // What has just been put into the downloads, which are empty afterwards.
        async function downloaded() {
            const file = join(rooms, "productos.dat");
            for (const end = Date.now() + patience; Date.now() < end;) {
                const names = await readdir(rooms);
                if (names.includes("productos.dat") && !names.some(name => /\.(crdownload|part)$/.test(name))) {
                    const bytes = await readFile(file);
                    if (bytes.length > 0) {
                        await rm(file);
                        return bytes;
                    }
                }
                await new Promise(done => setTimeout(done, 50));
            }
            throw new Error("waited in vain for the download");
        }

        test("with two pixels for one, the windows are drawn with all of them", async () => {
            const tab = await person.tab({ ratio: 2 });
            await tab.starts(url);
            const [drawn, shown] = await tab.page.evaluate(() => {
                const canvas = document.querySelector("#qt-shadow-container").shadowRoot.querySelector("canvas");
                return [canvas.width, canvas.clientWidth];
            });
            assert.equal(drawn, 2 * shown);
            await picture(tab, "menu-2x");
        });

        test("every window of the design stands whole on 1366 × 768 pixels", async () => {
            const tab = await person.tab();
            await tab.starts(url);
            await tab.press(...toShop);
            await tab.sees("La compra");
            await picture(tab, "shop");
            assert.deepEqual(await outside(tab), []);
        });

        // Windows of which a part cannot be seen.
        const outside = tab => tab.page.evaluate(() => {
            const room = document.querySelector("#program").getBoundingClientRect();
            return [...document.querySelector("#qt-shadow-container").shadowRoot.querySelectorAll(".qt-window")]
                .filter(one => one.style.display === "block")
                .filter(one => {
                    const place = one.getBoundingClientRect();
                    return place.left < room.left || place.top < room.top || place.right > room.right
                        || place.bottom > room.bottom;
                })
                .map(one => one.querySelector(".window-name").textContent);
        });

        test("the first picture takes little longer than that of an empty window", async () => {
            const times = { program: [], empty: [] };
            for (let round = 0; round < 5; ++round) {
                for (const [name, files] of [["program", folder], ["empty", empty]]) {
                    await serve(files);
                    const tab = await person.tab({ before: noteFirstPaint });
                    await tab.goes(url);
                    await tab.until("the first picture", () => window.firstPaint);
                    times[name].push(await tab.page.evaluate(() => window.firstPaint));
                }
            }
            const [program, least] = [times.program, times.empty].map(all => all.sort((one, other) => one - other)[2]);
            const ratio = program / least;
            console.log(`${kind}: first paint after ${Math.round(program)} ms, an empty window's ${Math.round(least)} ms: `
                + ratio.toFixed(2));
            assert.ok(ratio <= slowestStart, `${ratio} times as long`);
        });
    });
}

// Runs in the page: milliseconds from the navigation to the first frame in which a window has been painted.
function noteFirstPaint() {
    const look = () => {
        const canvas = document.querySelector("#qt-shadow-container")?.shadowRoot.querySelector(".qt-window canvas");
        const alpha = canvas?.width > 0
            && canvas.getContext("2d").getImageData(canvas.width / 2, canvas.height / 2, 1, 1).data[3];
        if (alpha) {
            window.firstPaint = performance.now();
        } else {
            requestAnimationFrame(look);
        }
    };
    requestAnimationFrame(look);
}
