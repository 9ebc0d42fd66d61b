// What a pupil does with the program in a browser.
import assert from "node:assert/strict";
import { test } from "node:test";

import { catalogueOf, inEachBrowser } from "./school.js";
import { brokenLinks } from "./visit.js";
import { buysAll, toShop, worksAll, writesSum } from "./walks.js";

inEachBrowser(school => {
    test("an exercise of each activity and a purchase are done by keys, and the end is said", async () => {
        const tab = await school.start();
        await school.picture(tab, "menu");
        await worksAll(tab);
        await tab.reads("Numbrela ha terminado.");
        await school.picture(tab, "ended", "#notice");
        await tab.press("F6", "F6", "F6"); // to the links, and not back to what is no longer there
        assert.equal(await tab.page.evaluate(() => document.activeElement.id), "save");
        await tab.clicksOnPage("Empezar de nuevo");
        await tab.sees("NUMBRELA");
    });

    test("who has bought all that is on the list goes home", async () => {
        const cheap = ["ala", "hueso", "lomo", "muslo"].map(name => [name, 0.01]); // as many as a list is long
        await school.replaceCatalogue(catalogueOf(cheap, "Carnicería"));
        await buysAll(await school.start(), cheap.length);
    });

    test("an exercise is done by a finger on the keypad alone", async () => {
        const tab = await school.start({ touch: true });
        await tab.taps("Sumas");
        await tab.sees("SUMAS");
        const upper = await tab.has("Primer sumando", /\d/);
        const lower = await tab.has("Segundo sumando", /\d/);
        await tab.taps("Teclado en pantalla", "Suma");
        const digits = [...sumOf(upper, lower)].reverse().map(one => one === "," ? "Coma" : one);
        await tab.taps(...digits);
        await school.picture(tab, "keypad");
        await tab.taps("Hecho");
        await tab.has("Veredicto", /^resultado correcto$/);
        await tab.taps("Teclado en pantalla", "Marcador"); // of which more is told when it has the focus
        await tab.has("Marcador", /^Ejercicios: +1; Errores: +0$/);
    });

    test("a finger that the system takes back, as a palm, presses nothing, and its key comes up", async () => {
        const tab = await school.start({ touch: true });
        await tab.taps("Sumas");
        await tab.sees("SUMAS");
        await tab.taps("Teclado en pantalla");
        await losesFinger(tab, "Hecho");
        await tab.taps("Suma");
        await losesFinger(tab, "5");
        await tab.taps("6"); // before it, because the caret steps back when a digit's key comes up
        await tab.has("Suma", /^65+$/);
        await tab.has("Veredicto", /^$/);
    });

    // The driver of Firefox has one finger only.
    test("a finger that lies still on a box takes nothing from another hand", { skip: school.kind === "firefox" },
        async () => {
            const tab = await school.start({ touch: true });
            await tab.taps("Sumas");
            await tab.sees("SUMAS");
            await tab.taps("Teclado en pantalla", "Suma", "4", "3");
            const panel = await tab.page.createCDPSession();
            const tells = (type, finger) => panel.send("Input.dispatchTouchEvent", { type, touchPoints: [finger] });
            const finger = async (name, id) => {
                const [x, y] = await tab.middleOf(name);
                return { x, y, id };
            };
            const still = await finger("Suma", 0);
            await tells("touchStart", still);
            for (const name of ["2", "1", "Hecho"]) {
                const other = await finger(name, 1);
                await tells("touchStart", other);
                await tells("touchEnd", other);
            }
            await tells("touchEnd", still);
            await tab.has("Suma", /^(?=.*2)(?=.*1)\d{4}$/);
            await tab.has("Veredicto", /^resultado /);
        });

    test("the keys that a browser would take are the program's, and F6 leads to the links and back", async () => {
        const tab = await school.start();
        await tab.page.evaluate(() => {
            window.keys = [];
            addEventListener("keydown", event => window.keys.push(event), { capture: true });
        });
        const taken = ["F1", "F2", "F3", "F5", "F7", "F10", "alt+z", "ctrl+r", "ctrl+F5", "ctrl+o", "ctrl+p", "ctrl+s", "ctrl+u", "alt+Home", "alt+Left",
            "alt+Right"];
        await tab.press(...taken);
        const kept = await tab.page.evaluate(() => window.keys.filter(one => !/^(Alt|Control)$/.test(one.key))
            .map(one => one.defaultPrevented));
        assert.deepEqual(kept, taken.map(() => true));
        await tab.press("F6");
        const [link, key, links] = await tab.page.evaluate(() => [document.activeElement.textContent,
            document.activeElement.getAttribute("aria-keyshortcuts"), document.activeElement.parentElement.title]);
        assert.equal(link, "Guardar el catálogo en un archivo");
        assert.equal(key, "F6");
        assert.match(links, /^F6 /);
        await tab.press("F6", "Enter");
        await tab.sees("SUMAS");
    });

    test("of two sentences that are announced at once, both are heard", async () => {
        const tab = await school.start({ before: () => addEventListener("DOMContentLoaded", () => {
            const load = window.qtLoad;
            window.qtLoad = config => {
                window.announce = config.numbrela.announce;
                return load(config);
            };
        }) });
        await tab.page.evaluate(() => {
            window.announce("Resultado correcto");
            window.announce("Nuevo ejercicio");
        });
        await tab.until("both", () => document.getElementById("news").textContent === "Resultado correcto Nuevo ejercicio");
    });

    test("a click beside the window leaves it the keys", async () => {
        const tab = await school.start();
        await tab.page.mouse.click(20, 300);
        await tab.press("Enter");
        await tab.sees("SUMAS");
        await tab.page.mouse.click(20, 300);
        await tab.press("7");
        assert.equal(await tab.copies(), "7");
    });

    test("the manual and the licences are a click away, with the sources, and the program stays", async () => {
        const tab = await school.start();
        const heights = await tab.page.$$eval("nav :is(button, a)", all => all.map(one => one.offsetHeight));
        assert.ok(Math.min(...heights) >= 24, `${heights} pixels are too low for a finger`);
        for (const [link, title] of [["Manual", "El manual de Numbrela"], ["Licencias", "Licencias de Numbrela"]]) {
            const opened = new Promise(done => tab.page.once("popup", done));
            await tab.page.locator(`::-p-xpath(//nav//a[text()="${link}"])`).click();
            const page = await opened;
            await page.reload(); // for what it has asked for before somebody listened
            await page.waitForFunction(wanted => document.querySelector("h1")?.textContent === wanted, {}, title);
            const missing = await page.evaluate(brokenLinks);
            assert.deepEqual(missing, []);
            await page.close();
        }
        await tab.page.bringToFront();
        await tab.press("Enter");
        await tab.sees("SUMAS");
    });

    test("with two pixels for one, the windows are drawn with all of them", async () => {
        const tab = await school.start({ ratio: 2 });
        const [drawn, shown] = await tab.page.evaluate(() => {
            const canvas = document.querySelector("#qt-shadow-container").shadowRoot.querySelector("canvas");
            return [canvas.width, canvas.clientWidth];
        });
        assert.equal(drawn, 2 * shown);
        await school.picture(tab, "menu-2x");
    });

    test("letters are drawn, and not boxes in the place of letters that no font has", async () => {
        const tab = await school.start();
        const [ten, nine] = [await widthOfText(tab, "Divisiones"), await widthOfText(tab, "La compra")];
        assert.ok(ten > 0 && ten < nine, `ten narrow letters take ${ten} pixels, nine wide ones ${nine}`);
    });

    test("a window comes back when the page becomes too narrow for where it is, and smaller when it is too low", async () => {
        for (const size of [{ width: 768, height: 1366 }, { width: 500, height: 900 }, { width: 900, height: 420 }]) {
            const tab = await school.start(); // Qt knows more of a window that has been moved before
            await tab.press("Enter");
            await tab.sees("SUMAS");
            await tab.page.setViewport(size);
            await tab.until("whole windows", windowsCutOff, true);
            await tab.page.close();
        }
    });

    // That has come down on what is called so. The driver of Firefox cannot take one back, but the page can be told so.
    async function losesFinger(tab, name) {
        const [x, y] = await tab.middleOf(name);
        if (school.kind === "chromium") {
            const panel = await tab.page.createCDPSession();
            await panel.send("Input.dispatchTouchEvent", { type: "touchStart", touchPoints: [{ x, y }] });
            await panel.send("Input.dispatchTouchEvent", { type: "touchCancel", touchPoints: [] });
            return;
        }
        await tab.page.evaluate(() => {
            addEventListener("pointerdown", event => {
                window.lost = [event.composedPath()[0], { pointerId: event.pointerId, pointerType: "touch", isPrimary: true,
                    bubbles: true, composed: true }];
            }, { capture: true, once: true });
        });
        const finger = await tab.page.touchscreen.touchStart(x, y);
        await tab.until("the finger", () => window.lost);
        await tab.page.evaluate(() => {
            const [place, pointer] = window.lost;
            place.dispatchEvent(new PointerEvent("pointercancel", pointer));
            addEventListener("pointerup", event => event.stopImmediatePropagation(), { capture: true, once: true });
            window.lost = null;
        });
        await finger.end(); // for the driver alone
    }

    for (const [screen, height] of [["installed, or in full screen,", 768], ["below the browser's own bars", 633]]) {
        test(`on a screen of 1366 × 768 pixels, ${screen} the menu, an exercise and the largest window stand whole`, async () => {
            const tab = await school.start({ height });
            assert.deepEqual(await cutOff(tab), []);
            await school.picture(tab, `menu-${height}`);
            await writesSum(tab);
            assert.deepEqual(await cutOff(tab), []);
            await school.picture(tab, `exercise-${height}`);
            await tab.closesByTheFrame();
            await tab.sees("NUMBRELA");
            await tab.press(...toShop);
            await tab.sees("La compra");
            await school.picture(tab, `shop-${height}`);
            assert.deepEqual(await cutOff(tab), []);
        });
    }
});

// Of two numbers with a decimal comma, or without.
function sumOf(...numbers) {
    const sum = numbers.reduce((all, number) => all + Math.round(1000 * Number(number.replace(",", "."))), 0);
    return String(sum / 1000).replace(".", ",");
}

// Of the caption of a button, in pixels from its first dark one to its last.
async function widthOfText(tab, button) {
    return (await tab.finds(button)).evaluate(one => {
        const canvas = one.closest(".qt-window").querySelector("canvas");
        const [place, origin] = [one, canvas].map(element => element.getBoundingClientRect());
        const [width, height] = [Math.floor(place.width) - 24, Math.floor(place.height) - 12]; // without the frames
        const { data } = canvas.getContext("2d").getImageData(
            Math.ceil(place.x - origin.x) + 12, Math.ceil(place.y - origin.y) + 6, width, height);
        const dark = Array.from({ length: width * height }, (_, index) => index)
            .filter(index => data[4 * index] + data[4 * index + 1] + data[4 * index + 2] < 128)
            .map(index => index % width);
        return Math.max(...dark) - Math.min(...dark);
    });
}

const cutOff = tab => tab.page.evaluate(windowsCutOff);

// Runs in the page: the titles of windows of which not all can be seen, or whether there are none.
function windowsCutOff(asksForNone = false) {
    const room = document.getElementById("program").getBoundingClientRect();
    const titles = [...document.querySelector("#qt-shadow-container").shadowRoot.querySelectorAll(".qt-window")]
        .filter(one => one.style.display === "block")
        .filter(one => {
            const place = one.getBoundingClientRect();
            return place.left < room.left || place.right > room.right || place.top < room.top || place.bottom > room.bottom;
        })
        .map(one => one.querySelector(".window-name").textContent);
    return asksForNone ? titles.length === 0 : titles;
}
