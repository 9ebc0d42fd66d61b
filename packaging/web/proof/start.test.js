// How the program comes to the browser and how it ends. NUMBRELA_EMPTY is the folder with an empty window in the
// program's place.
import assert from "node:assert/strict";
import { readFile, readdir, rm, writeFile } from "node:fs/promises";
import { test } from "node:test";

import { folder, inEachBrowser, priceOf } from "./school.js";
import { opensPowersOfTen, readsPrice } from "./walks.js";

const empty = process.env.NUMBRELA_EMPTY;
const mostBytes = 4_500_000; // over the wire, at a first visit, with brotli
const slowestStart = 1.3; // times that of an empty window
const fewRounds = 8;
const manyRounds = 24;

const again = "Empezar de nuevo";
const unfit = "Este navegador no puede abrir Numbrela: hace falta una versión actual de Chrome, Edge, Firefox o Safari.";

inEachBrowser(school => {
    test("a first visit takes no more over the wire than is allowed, and tells how far it is", async () => {
        const tab = await school.start({ before: notePercents });
        await tab.isKept();
        const bytes = school.server.bytesSent();
        console.log(`${school.kind}: ${bytes} bytes over the wire at a first visit`);
        assert.ok(bytes <= mostBytes, `${bytes} bytes`);
        const percents = await tab.page.evaluate(() => window.percents);
        assert.deepEqual(percents, [...percents].sort((one, other) => one - other));
        assert.equal(percents.at(-1), 100);
        assert.ok(new Set(percents).size > 3, `only ${percents}`);
    });

    test("a server that knows nothing of compression is asked for the compressed file", async () => {
        await school.opens(folder, { compressed: false });
        await school.start();
        assert.ok(school.server.requests.some(name => name.endsWith("numbrela.wasm.gz")));
    });

    test("the first picture takes little longer than that of an empty window", async () => {
        // What else the machine does only ever adds, so the shortest of many tells most: more when it is busy.
        const shortest = { [folder]: Infinity, [empty]: Infinity };
        const ratio = () => shortest[folder] / shortest[empty];
        for (let round = 0; round < fewRounds || (round < manyRounds && ratio() > slowestStart); ++round) {
            for (const files of [folder, empty]) {
                await school.opens(files);
                const tab = await school.person.tab({ before: noteFirstPaint });
                await tab.goes(school.url);
                await tab.until("the first picture", () => window.firstPaint);
                shortest[files] = Math.min(shortest[files], await tab.page.evaluate(() => window.firstPaint));
            }
        }
        console.log(`${school.kind}: first picture after ${Math.round(shortest[folder])} ms, an empty window's `
            + `${Math.round(shortest[empty])} ms: ${ratio().toFixed(2)}`);
        assert.ok(ratio() <= slowestStart, `${ratio()} times as long`);
    });

    test("it starts without a network after the first visit", async () => {
        const tab = await school.start();
        await tab.isKept();
        await school.server.stop();
        await tab.reloads();
        await tab.sees("NUMBRELA");
        assert.equal(await readsPrice(tab), priceOf(await school.catalogue()));
        await school.server.start(); // for the tab's end
    });

    test("a new version takes the place of the old one as a whole", async () => {
        const first = await school.start();
        await first.isKept();
        await first.page.close();
        const version = (await readFile(school.file("worker.js"), "utf8")).match(/"(\?.*)"/)[1];
        await rename(version, "?otra");
        const old = await school.start();
        await old.until("the new version", async () => (await navigator.serviceWorker.getRegistration()).waiting);
        assert.ok((await programsOf(old)).every(name => name.endsWith(version)), "the old version is whole");
        await old.page.close();
        const other = await school.start();
        assert.ok((await programsOf(other)).every(name => name.endsWith("?otra")), "the new version is whole");
        assert.equal((await other.page.evaluate(() => caches.keys())).length, 1);
    });

    async function rename(version, other) {
        const names = (await readdir(school.site)).filter(name => /\.(js|html)$/.test(name));
        for (const name of names) {
            const text = await readFile(school.file(name), "utf8");
            await writeFile(school.file(name), text.replaceAll(version, other));
            await rm(school.file(name) + ".br", { force: true });
        }
        await writeFile(school.file("worker.js"),
            (await readFile(school.file("worker.js"), "utf8")).replaceAll(version.slice(1), other.slice(1)));
    }

    const programsOf = tab => tab.page.evaluate(() => performance.getEntriesByType("resource").map(one => one.name)
        .filter(name => /\.(js|wasm)\?/.test(name)));

    test("an error that ends the program is said, and it starts again at a click", async () => {
        const tab = await school.start();
        await opensPowersOfTen(tab);
        await tab.press("F2");
        await tab.sees("Insertar factor 1");
        await tab.press("ctrl+a");
        await tab.write("x");
        await tab.press("Enter");
        await tab.sees("Numbrela"); // the program's own words
        await school.picture(tab, "error");
        await tab.press("Enter");
        await tab.reads("Numbrela se ha cerrado por un error.");
        await school.picture(tab, "failed");
        await tab.clicksOnPage(again);
        await tab.sees("NUMBRELA");
    });

    test("a browser that cannot run it is told so", async () => {
        const tab = await school.person.tab({ before: () => delete window.WebAssembly });
        await tab.goes(school.url);
        await tab.reads(unfit);
    });

    test("a program that is not all there is not started, and this is said", async () => {
        await rm(school.file("numbrela.wasm"));
        await rm(school.file("numbrela.wasm.br"));
        const tab = await school.person.tab();
        await tab.goes(school.url);
        await tab.reads("Numbrela no se ha podido cargar: no hay conexión, o en el servidor falta algo.");
        school.person.forgives(/404/);
    });
});

// These run in the page, before it.

function notePercents() {
    addEventListener("DOMContentLoaded", () => {
        window.percents = [];
        new MutationObserver(() => window.percents.push(document.getElementById("progress").value))
            .observe(document.getElementById("percent"), { childList: true });
    });
}

// Milliseconds from the navigation to the first frame in which a window has been painted.
function noteFirstPaint() {
    const look = () => {
        const canvas = document.querySelector("#qt-shadow-container")?.shadowRoot.querySelector(".qt-window canvas");
        const opacity = canvas?.width > 0
            && canvas.getContext("2d").getImageData(canvas.width / 2, canvas.height / 2, 1, 1).data[3];
        if (opacity) {
            window.firstPaint = performance.now();
        } else {
            requestAnimationFrame(look);
        }
    };
    requestAnimationFrame(look);
}
