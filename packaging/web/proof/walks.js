// An exercise of each activity and a purchase, with keys alone, as tests/smoke/walk does them on a desk.
import assert from "node:assert/strict";

const powersTitle = "multiplicar y dividir por 10, 100, 1000";
const mostDraws = 300; // of which one in 13 is wanted
const oneRight = /^Ejercicios: +1; Errores: +0$/;

export async function opens(tab, title) {
    await tab.press("Enter");
    await tab.sees(title);
}

async function leaves(tab, key) {
    await tab.press(...key ? ["alt+o", key] : ["F4"]);
    await tab.sees("NUMBRELA");
    await tab.press("Tab");
}

export async function enters(tab, key, box, number, title) {
    await tab.press(key);
    await tab.sees(box);
    await tab.press("ctrl+a");
    await tab.write(number);
    await tab.press("Enter");
    await tab.sees(title);
}

const tabs = (tab, times) => tab.press(...Array(times).fill("Tab"));

// The sum of numbers with one decimal at most, in tenths.
const tenthsOf = numbers => numbers.reduce((sum, one) => sum + Math.round(10 * Number(one.replace(",", "."))), 0);

// The sum of a column of money, in which each line but the first has its sign.
function cents(text) {
    return text.split("\n").reduce((sum, line) =>
        sum + Math.round(100 * Number(line.replace(/[^0-9,-]/g, "").replace(",", "."))), 0);
}

const euros = sum => (sum / 100).toFixed(2).replace(".", ",");

async function writesColumn(tab, title, box, upper, lower, result) {
    await opens(tab, title);
    await enters(tab, "F2", box, upper, title);
    await enters(tab, "F3", box, lower, title);
    await tab.writeFromTheRight(result);
}

export const writesSum = (tab, result = "125") => writesColumn(tab, "SUMAS", "Sumas", "57", "68", result);

async function column(tab, ...exercise) {
    await writesColumn(tab, ...exercise);
    await tab.press("Enter");
    await tabs(tab, 3);
    await tab.copies(oneRight);
}

async function multiplication(tab) {
    await opens(tab, "Multiplicaciones");
    await enters(tab, "F2", "Introducir primer factor", "23", "Multiplicaciones");
    await enters(tab, "F3", "Introducir segundo factor", "45", "Multiplicaciones");
    await tab.writeFromTheRight("115");
    await tab.press("Tab");
    await tab.writeFromTheRight("92 ");
    await tab.press("Tab");
    await tab.writeFromTheRight("1035");
    await tab.press("Enter");
    await tabs(tab, 3);
    await tab.copies(oneRight);
}

// 96 : 8, under the dividend 16 and then the rest, 0
async function division(tab) {
    await opens(tab, "DIVISIONES");
    await enters(tab, "F2", "Introducir dividendo", "96", "DIVISIONES");
    await enters(tab, "F3", "Introducir divisor", "8", "DIVISIONES");
    await tab.press("PageUp", "Home", "Down");
    await tab.write(" 16");
    await tab.press("Home", "Down");
    await tab.write("  0");
    await tabs(tab, 2);
    await tab.write("12");
    await tab.press("Tab", "Space");
    await tabs(tab, 3);
    await tab.copies(oneRight);
}

// One number after the other is chosen, and a wrong one vanishes, until it is the right one.
async function comparison(tab) {
    await opens(tab, "MAYOR Y MENOR");
    let score = "";
    for (let errors = 0; errors < 6 && !score.startsWith("Aciertos: 1;"); ++errors) {
        await tab.press("Space", "shift+Tab", "shift+Tab");
        score = await tab.copies(/Aciertos/);
        await tab.press("Tab", "Tab");
    }
    assert.match(score, /^Aciertos: 1; +Errores: [0-5]\.$/);
}

// 57 and 100, of which the window does not tell; whether they are multiplied or divided it does.
async function powersOfTen(tab) {
    await opens(tab, powersTitle);
    await enters(tab, "F2", "Insertar factor 1", "57", powersTitle);
    await enters(tab, "F3", "Insertar factor 2", "100", powersTitle);
    await tab.press("shift+Tab", "shift+Tab", "shift+Tab");
    const sign = await tab.copies(/[×÷]/);
    await tabs(tab, 3);
    await tab.write(sign.includes("×") ? "5700" : "0,57");
    await tab.press("Enter", "shift+Tab");
    await tab.copies(/^Resultado correcto ?$/);
}

async function readsAddends(tab) {
    await tab.press("shift+Tab");
    const addends = (await tab.copies()).split("+");
    await tab.press("Tab");
    return addends.map(addend => addend.trim());
}

// Two addends with one decimal at most, until their sum is whole: others are never judged right.
async function placeAndAdd(tab) {
    await opens(tab, "COLOCA Y SUMA");
    await tab.press("alt+o", "Right", "2");
    await tab.press("alt+o", "Down", "Right", "2");
    let addends = await readsAddends(tab);
    for (let drawn = 1; tenthsOf(addends) % 10 !== 0; ++drawn) {
        assert.ok(drawn < mostDraws, `none of ${mostDraws} exercises has a whole sum`);
        await tabs(tab, 5);
        await tab.press("Space"); // its access key would press the button a moment later
        addends = await readsAddends(tab);
    }
    for (const number of [...addends, String(tenthsOf(addends) / 10)]) {
        const units = number.split(",")[0];
        await tab.write(units.padStart(4) + number.slice(units.length)); // its units in the fourth of the places
        await tab.press("Tab");
    }
    await tab.press("Space", "Tab");
    await tab.copies(/^Resultado correcto ?$/);
}

// In the first shop, what these keys choose there. Returns what it costs, in cents.
async function buys(tab, ...choices) {
    await tab.press("alt+e", "Space");
    await tab.press("Home", ...choices);
    await tabs(tab, 3);
    await tab.press("Space", "shift+Tab");
    const price = cents(await tab.copies(/\d/));
    await tab.press("Tab");
    await tab.writeFromTheRight(euros(price));
    await tab.press("Tab", "Space", "shift+Tab");
    const change = cents(await tab.copies(/\d/));
    await tab.press("Tab");
    await tab.writeFromTheRight(euros(change));
    await tab.press("Tab", "Space", "Enter");
    return price;
}

// Two pieces of the second product, which is cheap enough for every purse.
async function purchase(tab) {
    await opens(tab, "La compra");
    await tab.press("alt+d");
    const before = cents(await tab.copies(/\d/));
    const price = await buys(tab, "Down", "Enter", "Enter");
    await tab.press("alt+d");
    assert.equal(cents(await tab.copies(/\d/)), before - price, "what is left in the purse");
}

// All that the list may ask for, up to three pieces of each of so many products, and then home.
export async function buysAll(tab, products) {
    await tab.press(...toShop);
    await tab.sees("La compra");
    await buys(tab, ...Array(products).fill(["Enter", "Enter", "Enter", "Down"]).flat());
    for (const [box, key] of [["Compra terminada", "Enter"], ["La compra", "alt+v"],
        ["Vuelves a casa con tu compra", "Enter"], ["Actividad terminada", "Escape"]]) {
        await tab.sees(box);
        await tab.press(key);
    }
    await tab.sees("NUMBRELA");
}

// With the access key of "Salir" in the menu of each window, if it has one.
const walks = [
    [tab => column(tab, "SUMAS", "Sumas", "57", "68", "125"), "s"],
    [tab => column(tab, "RESTAS", "Restas", "132", "57", "75"), "s"],
    [multiplication, "a"],
    [division, "s"],
    [comparison, null],
    [powersOfTen, "s"],
    [placeAndAdd, "s"],
    [purchase, "s"],
];

// From the menu's first button to its last one, by which the program ends.
export async function worksAll(tab) {
    for (const [walk, exit] of walks) {
        await walk(tab);
        await leaves(tab, exit);
    }
    await tab.press("Enter"); // "S&alir"
}

export const toShop = ["shift+Tab", "shift+Tab", "Enter"]; // from "&Sumas" backwards to "&La compra"

export async function opensEditor(tab) {
    await tab.press(...toShop);
    await tab.sees("La compra");
    await tab.press("F3");
    await tab.sees("Productos");
}

async function leavesShop(tab) {
    await tab.sees("La compra");
    await leaves(tab, "s");
    await tab.press("Tab"); // from "S&alir" on to the first button again
}

// The prices of the catalogue's first products.
export async function readsPrices(tab, count) {
    await opensEditor(tab);
    const prices = [];
    for (let product = 0; product < count; ++product) {
        await tab.press("End", "Home", ...Array(product).fill("Down"), "Tab", "Tab", "Tab");
        prices.push(await tab.copies(/\d/));
        await tab.press("shift+Tab", "shift+Tab", "shift+Tab");
    }
    await tab.press("F4");
    await leavesShop(tab);
    return prices;
}

export async function readsPrice(tab) {
    return (await readsPrices(tab, 1))[0];
}

// In the editor, another price for the first product; the focus goes to "Aceptar".
export async function changesPrice(tab, price) {
    await tab.press("End", "Home", "Tab", "Tab", "Tab", "ctrl+a");
    await tab.write(price);
    await tab.press("shift+Tab", "shift+Tab", "shift+Tab", "End"); // to the last product: the first takes its new price
    await tabs(tab, 7);
}

export async function savesPrice(tab, price) {
    await opensEditor(tab);
    await changesPrice(tab, price);
    await tab.press("Space");
    await leavesShop(tab);
}

// In the editor, one product more, and an attempt to save it.
export async function addsProduct(tab, ...answers) {
    await tab.press("Tab", "Tab", "Tab", "Tab", "Space"); // "&Añadir"
    for (const answer of answers) {
        await tab.sees("Añadir producto");
        await tab.write(answer);
        await tab.press("Enter");
    }
    await tab.sees("Productos");
    await tabs(tab, 7);
    await tab.press("Space"); // "Aceptar"
}

// The sixth activity of the menu
export async function opensPowersOfTen(tab) {
    await tabs(tab, 5);
    await opens(tab, powersTitle);
}
