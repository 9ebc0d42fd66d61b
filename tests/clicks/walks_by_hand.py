"""One walk through each activity, from the menu and back, by clicks alone."""

import re

import pyatspi
from hand import contains, extents, text_of
from walks import NUMBER, spanish, value

ONE_RIGHT = "Ejercicios:  1; Errores:  0"


def opens(hand, button, title):
    hand.clicks(button, pyatspi.ROLE_PUSH_BUTTON)
    hand.sees(title)


def enters(hand, item, title, window, number):
    """Writes a number into the box that a menu item opens, in place of what is highlighted there. The keypad is shown
    there and not before."""
    hand.chooses("Opciones", item)
    hand.sees(title)
    if not hand.has_the_keypad():
        hand.shows_the_keypad()
    hand.writes(number)
    hand.clicks("Aceptar")
    hand.sees(window)


def leaves(hand, item):
    hand.chooses("Opciones", item)
    hand.sees("NUMBRELA")


def sums(hand):
    opens(hand, "Sumas", "SUMAS")
    enters(hand, "Introducir primer sumando", "Sumas", "SUMAS", "57,5")
    enters(hand, "Introducir segundo sumando", "Sumas", "SUMAS", "68")
    hand.reads_that("Primer sumando", "57,5")
    column(hand, "Suma", "125,5")
    leaves(hand, "Salir (Alt - F4)")


def differences(hand):
    hand.maximises()
    opens(hand, "Restas", "RESTAS")
    hand.shows_the_keypad()
    column(hand, "Diferencia", spanish(value(hand.reads("Minuendo")) - value(hand.reads("Sustraendo"))))
    leaves(hand, "Salir (Alt-F4)")


def column(hand, result, right):
    hand.clicks(result)
    hand.writes_from_the_right("1" + right)
    hand.writes("<")  # the digit that was one too many
    hand.reads_that(result, right)
    hand.clicks("Hecho")
    hand.reads_that("Veredicto", "resultado correcto")
    hand.reads_that("Marcador", ONE_RIGHT)


def multiplication(hand):
    opens(hand, "Multiplicaciones", "Multiplicaciones")
    enters(hand, "Introducir Primer factor", "Introducir primer factor", "Multiplicaciones", "734")
    enters(hand, "Introducir segundo factor", "Introducir segundo factor", "Multiplicaciones", "46")
    for row, written in (("Producto parcial 1", "4404"), ("Producto parcial 2", "2936 "), ("Resultado", "33764")):
        hand.clicks(row)
        hand.writes_from_the_right(written)
        hand.reads_that(row, written.strip())
    hand.clicks("Hecho")
    hand.reads_that("Veredicto", "Resultado correcto")
    hand.reads_that("Marcador", ONE_RIGHT)
    leaves(hand, "Salir (Alt-F4)")


def division(hand):
    """96 : 8 = 12; under the dividend stand 16 and, one row down and one place to the left, the rest."""
    opens(hand, "Divisiones", "DIVISIONES")
    enters(hand, "Introducir dividendo", "Introducir dividendo", "DIVISIONES", "96")
    enters(hand, "Introducir divisor", "Introducir divisor", "DIVISIONES", "8")
    hand.clicks("Borrar")
    hand.writes("16v(0")
    paper = hand.reads("Dividendo y operaciones").split("\n")
    assert [row.rstrip() for row in paper[:3]] == [" 96", " 16", "  0"], paper
    hand.clicks("Cociente")
    hand.writes("12")
    hand.clicks("Hecho")
    hand.reads_that("Enunciado y veredicto", "resultado correcto")
    hand.reads_that("Marcador", ONE_RIGHT)
    leaves(hand, "Salir (Alt - F4)")


def comparison(hand):
    opens(hand, "Mayor y menor", "MAYOR Y MENOR")
    asked = hand.reads("Instrucción")
    numbers = [one.name for one in hand.all(pyatspi.ROLE_PUSH_BUTTON) if re.fullmatch(NUMBER, one.name)]
    assert len(numbers) == 6, numbers
    hand.clicks((max if "MAYOR" in asked else min)(numbers, key=value))
    hand.reads_that("Veredicto", "CORRECTO")
    hand.closes_by_the_frame()
    hand.sees("NUMBRELA")


def powers_of_ten(hand):
    hand.maximises()
    opens(hand, "10, 100, 1000", "multiplicar y dividir por 10, 100, 1000")
    hand.shows_the_keypad()
    number, power = value(hand.reads("Número")), value(hand.reads("Potencia de diez"))
    hand.clicks("Resultado")
    hand.writes(spanish(number * power if "×" in hand.reads("Signo") else number / power))
    hand.clicks("Hecho")
    hand.reads_that("Veredicto", "Resultado correcto")
    leaves(hand, "Salir Alt + F4")


def place_and_add(hand):
    """The sums that are judged right are the whole ones."""
    opens(hand, "Coloca y suma", "COLOCA Y SUMA")
    hand.chooses("Opciones", "Número de sumandos", "2")
    hand.shows_the_keypad()
    while True:
        addends = hand.reads("Sumandos")
        numbers = [value(number) for number in addends.split(" + ")]
        if sum(numbers) % 1 == 0:
            break
        hand.clicks("Sumando 1")  # so that two clicks on a button are no double click
        hand.clicks("Continuar")
        hand.waits_until(lambda before=addends: hand.reads("Sumandos") != before)
    for name, number in (("Sumando 1", numbers[0]), ("Sumando 2", numbers[1]), ("Suma", sum(numbers))):
        whole, comma, decimals = spanish(number).partition(",")
        box = hand.finds(name)
        hand.clicks_at_the_left_end(box)
        hand.writes(whole.rjust(4) + comma + decimals)
        assert value(text_of(box).strip()) == number, text_of(box)
    hand.clicks("Hecho")
    hand.reads_that("Veredicto", "Resultado correcto")
    leaves(hand, "Salir Alt+F4")


def shopping(hand):
    opens(hand, "La compra", "La compra")
    enters(hand, "Número de productos", "¿Cuántos productos incluir en la lista?", "La compra", "2")
    hand.waits_until(lambda: len(hand.lines_of("Lista de la compra")) == 2)
    money = value(hand.reads("Dinero disponible").rstrip("€"))
    wanted = {}
    for line in hand.lines_of("Lista de la compra"):
        units, product = re.fullmatch(r"\((\d+)\) (.*)", line.name).groups()
        wanted[product] = int(units)
    for shop in ("Carnicería", "Charcutería", "Frutería", "Kiosko", "Librería", "Panadería", "Papelería",
                 "Pastelería", "Pescadería", "Supermercado"):  # fmt: skip
        if not wanted:
            break
        hand.clicks(shop)
        shelf = hand.finds("Productos disponibles", pyatspi.ROLE_LIST)
        bought = [line.name for line in shelf if line.name in wanted]
        for product in bought:
            takes(hand, shelf, product, wanted.pop(product))
        hand.clicks("Continuar")
        if bought:
            money -= pays(hand, not wanted)
            hand.waits_until(lambda left=money: round(value(hand.reads("Dinero disponible").rstrip("€ ")), 2) == left)
    hand.clicks("Volver a casa")
    hand.clicks("Aceptar")
    hand.sees("Actividad terminada")
    hand.clicks("No")
    hand.sees("NUMBRELA")


def takes(hand, shelf, product, units):
    line = next(one for one in shelf if one.name == product)
    while not contains(extents(shelf), *hand.middle_of(line)):
        hand.turns_the_wheel_over(shelf)
    for _ in range(units):
        hand.clicks_on(line, times=2)
    hand.waits_until(lambda: any(one.name.startswith(f"({units}) {product} ") for one in hand.lines_of("Cesta de la compra")))


def pays(hand, is_last):
    """Adds up, works out the change and leaves the shop; returns the price of it all."""
    if not hand.has_the_keypad():
        hand.shows_the_keypad()
    price = sum(value(number) for number in re.findall(NUMBER, hand.reads("Cantidades")))
    hand.writes_from_the_right(spanish(price))
    hand.clicks("Continuar")
    hand.waits_until(lambda: "-" in hand.reads("Cantidades"))
    notes, paid = map(value, re.findall(NUMBER, hand.reads("Cantidades")))
    assert paid == price, (paid, price)
    hand.writes_from_the_right(spanish(notes - price))
    hand.clicks("Continuar")
    hand.clicks("Instrucciones")  # so that two clicks on a button are no double click
    hand.clicks("Salir")
    if is_last:
        hand.sees("Compra terminada")
        hand.clicks("Aceptar")
        hand.sees("La compra")
    return price


WALKS = {
    walk.__name__: walk
    for walk in (
        sums, differences, multiplication, division, comparison, powers_of_ten, place_and_add, shopping
    )
}  # fmt: skip
