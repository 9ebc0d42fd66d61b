"""One walk through each activity, from the menu and back, worked by keys alone with nothing but what is heard."""

import re
from decimal import Decimal

PLACES = ("unidades", "decenas", "centenas", "unidades de millar", "decenas de millar", "centenas de millar")
NUMBER = r"[\d.]+(?:,\d+)?"

WALKS = {}  # by the names of the activities


def walk(function):
    """Marks a walk through an activity; ctest runs whatever has this mark."""
    WALKS[function.__name__] = function
    return function


def value(text):
    return Decimal(text.replace(".", "").replace(",", "."))


def spanish(number):
    text = f"{number:f}"
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return text.replace(".", ",")


def opens(pupil, button, title):
    pupil.finds_the_program()
    if not pupil.has_focus_on(button):
        pupil.goes_to(button)
    pupil.presses("Return")
    pupil.hears(title)


def goes_down_to(pupil, item, first):
    """To an item of the menu that has just been opened, and of which the first item is being said."""
    if pupil.hears(first).group() != item:
        pupil.goes_to(item, "Down")


def opens_options(pupil, item):
    pupil.presses("alt+o")
    pupil.hears("Opciones", counts=False)  # a reader may go on to the first item at once
    goes_down_to(pupil, item, ".*")


def chooses(pupil, option, choice):
    opens_options(pupil, option)
    pupil.presses("Right")
    goes_down_to(pupil, choice, r"\d")
    pupil.presses("Return")


def leaves(pupil, button):
    pupil.closes_by("alt+F4")
    pupil.hears("NUMBRELA")
    pupil.hears(button)


@walk
def sums(pupil):
    column(pupil, "Sumas", "SUMAS", "Suma", "más", lambda upper, lower: upper + lower)


@walk
def differences(pupil):
    column(pupil, "Restas", "RESTAS", "Diferencia", "menos", lambda upper, lower: upper - lower)


def column(pupil, button, title, result, sign, operation):
    opens(pupil, button, title)
    exercise = f"({NUMBER}) {sign} ({NUMBER})"

    def solution(sentence=exercise):
        return spanish(operation(*map(value, pupil.hears(sentence).groups())))

    right = solution(rf"{result} \| {exercise}")
    for _ in range(2):  # a verdict that is repeated is heard again
        pupil.presses("ctrl+a", "BackSpace")
        pupil.writes_from_the_right("1" + right)
        pupil.presses("Return")
        pupil.hears("resultado incorrecto")
    pupil.presses("alt+b")
    pupil.hears(f"{result}: en blanco")
    pupil.writes_from_the_right(right)
    pupil.presses("ctrl+Left", "ctrl+Right", "Return")
    pupil.hears("Continuar")
    pupil.hears("resultado correcto")
    pupil.goes_to(r"Marcador \| Ejercicios: +3; Errores: +2")
    pupil.goes_to("Continuar", "shift+Tab")
    pupil.presses("space")
    solution()

    chooses(pupil, "Cifras", "5")
    right = solution()
    pupil.goes_to("Ver solución")
    pupil.presses("space")
    solved = value(pupil.hears(f"{result}: ({NUMBER})").group(1))
    assert round(solved, 2) == value(right), solved  # which may be shown as 9.310,03999999999
    leaves(pupil, button)


@walk
def multiplication(pupil):
    opens(pupil, "Multiplicaciones", "Multiplicaciones")
    pupil.hears(r"Producto parcial 1 \| unidades")
    exercise = f"({NUMBER}) por ({NUMBER})"
    factor1, factor2 = map(value, pupil.hears(exercise).groups())
    digits1 = int(re.sub(r"\D", "", spanish(factor1)))
    for row, digit in enumerate(reversed(re.sub(r"\D", "", spanish(factor2)))):
        if row > 0:
            pupil.goes_to(rf"Producto parcial {row + 1} \| unidades")
            pupil.writes(" " * row)
            pupil.hears(PLACES[row])
        for place, written in enumerate(reversed(str(digits1 * int(digit))), row):
            pupil.writes(written)
            pupil.hears(PLACES[place + 1])
    pupil.goes_to("Resultado")
    pupil.writes_from_the_right(spanish(factor1 * factor2 + 1))
    for _ in range(2):
        pupil.presses("Return")
        pupil.hears(r"Producto parcial 1 \| \d+ \| .+")
        pupil.hears("resultado incorrecto")
        pupil.goes_to(r"Resultado \| .*")
    pupil.presses("ctrl+a", "BackSpace")
    pupil.writes_from_the_right(spanish(factor1 * factor2))
    pupil.presses("Return")
    pupil.hears("Continuar")
    pupil.hears("Resultado correcto")
    pupil.goes_to(r"Marcador \| Ejercicios: +3; Errores: +2")
    pupil.goes_to("Continuar", "shift+Tab")
    pupil.presses("space")
    pupil.hears(exercise)
    chooses(pupil, "Cifras factor 1", "3")
    factor1, factor2 = map(value, pupil.hears(exercise).groups())
    pupil.goes_to("Ver solución")
    pupil.presses("space")
    assert value(pupil.hears(f"Resultado: ({NUMBER})").group(1)) == factor1 * factor2
    leaves(pupil, "Multiplicaciones")


@walk
def division(pupil):
    opens(pupil, "Divisiones", "DIVISIONES")
    exercise = rf"(?:fila.*: en blanco\. )?({NUMBER}) entre ({NUMBER})"
    quotient_box = rf"Cociente \| (?:({NUMBER}) \| )?{NUMBER} entre {NUMBER}"
    paper = r"Dividendo y operaciones \| (.*) \| fila (\d+), columna (\d+): (.+)"
    pupil.hears(paper)

    def solution():
        dividend, divisor = pupil.hears(exercise).groups()
        decimals = len(dividend.partition(",")[2])
        quotient, remainder = divmod(int(re.sub(r"\D", "", dividend)), int(re.sub(r"\D", "", divisor)))
        return spanish(Decimal(quotient).scaleb(-decimals)), str(remainder), dividend

    quotient, remainder, dividend = solution()
    pupil.presses("Up")
    pupil.hears(f"fila 1, columna 2: {dividend[0]}")
    pupil.finds_the_caret(1)
    pupil.presses("Down")
    pupil.hears("fila 2, columna 2: en blanco")
    for digit in remainder:
        pupil.writes(digit)
        pupil.hears(rf"escrito {digit}\. fila 2, columna \d+: en blanco")
    pupil.notices(remainder[-1])
    pupil.presses("End")
    pupil.hears(r"fila 2, columna \d+: en blanco")
    pupil.presses("BackSpace")  # into the last cell of a row, and where nothing was
    pupil.hears(r"borrado\. fila 3, columna 1: en blanco")
    pupil.presses("alt+b")
    pupil.hears(r"fila 2, columna 2: en blanco\. Operaciones: en blanco\. Cociente: en blanco")
    pupil.writes(remainder)
    pupil.hears(rf".*escrito {remainder[-1]}\. fila 2, columna \d+: en blanco")
    pupil.presses("Left")
    pupil.hears(rf"fila 2, columna \d+: {remainder[-1]}")
    pupil.goes_to(quotient_box)
    pupil.writes("9" + quotient)
    for _ in range(2):
        pupil.goes_to("Hecho")
        pupil.presses("space")
        pupil.hears("Resultado incorrecto")
        pupil.goes_to(quotient_box, "shift+Tab")
    pupil.presses("ctrl+a", "BackSpace")
    pupil.writes(quotient)
    pupil.goes_to("Hecho")
    pupil.presses("space")
    pupil.hears("Continuar")
    pupil.hears("resultado correcto")
    pupil.goes_to(r"Marcador \| Ejercicios: +3; Errores: +2")
    pupil.goes_to("Continuar", "shift+Tab")
    pupil.presses("space")
    pupil.hears(exercise)

    chooses(pupil, "Cifras del dividendo", "4")
    quotient, remainder, dividend = solution()
    pupil.goes_to("Ver solucióm")
    pupil.presses("space")
    solved = pupil.hears(rf"Cociente: ({NUMBER})\. Operaciones: \d+ filas")
    assert value(solved.group(1)) == value(quotient)
    worked = pupil.goes_to(paper, "shift+Tab").group(1).split("\n")
    assert worked[0].strip() == dividend, worked
    assert worked[-1].replace(" ", "").lstrip("0") == remainder.lstrip("0"), worked
    leaves(pupil, "Divisiones")


@walk
def comparison(pupil):
    opens(pupil, "Mayor y menor", "MAYOR Y MENOR")
    numbers = [pupil.hears(NUMBER).group()]
    question = "Pulsa sobre el número (MAYOR|MENOR)"
    asked = pupil.hears(question).group(1)
    while len(numbers) < 6:
        numbers.append(pupil.goes_to(NUMBER).group())
    order = sorted(numbers, key=value, reverse=asked == "MAYOR")
    for wrong in order[:3:-1]:
        pupil.goes_to(wrong, "shift+Tab")
        pupil.presses("space")
        pupil.hears(NUMBER)  # has the focus now
        pupil.hears("ERROR")
    if not pupil.has_focus_on(order[0]):
        pupil.goes_to(order[0], "shift+Tab")
    pupil.presses("space")
    pupil.hears(f"CORRECTO. {question}")
    pupil.goes_to(r"Marcador \| Aciertos: 1; +Errores: 2\.")
    leaves(pupil, "Mayor y menor")


@walk
def powers_of_ten(pupil):
    opens(pupil, "10, 100, 1000", "multiplicar y dividir por 10, 100, 1000")
    exercise = f"({NUMBER}) (por|entre) (10+)"

    def solution(sentence=exercise):
        number, sign, power = pupil.hears(sentence).groups()
        return spanish(value(number) * int(power) if sign == "por" else value(number) / int(power))

    right = solution(rf"Resultado \| {exercise}")
    for _ in range(2):
        pupil.writes("1" + right)
        pupil.presses("Return")
        pupil.hears("Resultado incorrecto")
        pupil.presses("ctrl+a", "BackSpace")
    pupil.writes(right)
    pupil.presses("Return")
    pupil.hears("Continuar")
    pupil.hears("Resultado correcto")
    pupil.presses("space")
    solution()
    chooses(pupil, "Cifras factor 1", "4")
    right = solution()
    pupil.goes_to("Ver solución")
    pupil.presses("space")
    assert value(pupil.hears(f"Resultado: ({NUMBER})").group(1)) == value(right)
    leaves(pupil, "10, 100, 1000")


@walk
def place_and_add(pupil):
    opens(pupil, "Coloca y suma", "COLOCA Y SUMA")
    exercise = f"{NUMBER}(?: más {NUMBER})+"
    empty_box = r"Sumando 1 \|  +"
    pupil.hears(empty_box)
    pupil.hears(exercise)
    chooses(pupil, "Número de sumandos", "2")
    addends = [value(text) for text in pupil.hears(exercise).group().split(" más ")]
    while sum(addends) % 1 != 0:  # of a sum with decimals the whole part alone counts, and is never right
        pupil.presses("alt+c")
        addends = [value(text) for text in pupil.hears(exercise).group().split(" más ")]
    assert len(addends) == 2
    for row, addend in enumerate(addends):
        if row > 0:
            pupil.goes_to(rf"Sumando {row + 1} \|  +")
        whole, _, decimals = spanish(addend).partition(",")
        pupil.writes(whole.rjust(4) + ("," + decimals if decimals else ""))
    pupil.goes_to(r"Suma \|  +")
    for digits in (sum(addends) + 1, sum(addends) + 1, sum(addends)):
        pupil.presses("Home")
        pupil.writes(spanish(digits).rjust(4))
        pupil.presses("alt+h")  # which leaves the focus where it is
        pupil.hears("Resultado correcto" if digits == sum(addends) else "Resultado incorrecto")
    pupil.presses("alt+v")
    assert value(pupil.hears(rf"Suma: ({NUMBER})").group(1)) == sum(addends)
    pupil.presses("alt+b")
    pupil.hears(empty_box)
    pupil.hears("Sumando 1: en blanco")
    leaves(pupil, "Coloca y suma")


@walk
def shopping(pupil):
    opens(pupil, "La compra", "La compra")
    purse = rf"Dinero disponible: ({NUMBER}).*Tiempo disponible: .*"
    pupil.hears(purse)
    opens_options(pupil, "Número de productos")
    pupil.presses("Return")
    pupil.hears("¿Cuántos productos incluir en la lista.*")
    pupil.presses("ctrl+a")
    pupil.writes("2")
    pupil.closes_by("Return")
    money = value(pupil.hears(purse).group(1))
    pupil.presses("alt+t")
    pupil.hears(r"Tiempo disponible \| \d+ : \d\d")
    pupil.presses("alt+l")
    pupil.hears("Lista de la compra")
    wanted = dict([line_of_the_list(pupil)])
    pupil.presses("Down")
    wanted.update([line_of_the_list(pupil)])
    shops_seen = 0
    while wanted:
        shop = goes_to_shop(pupil, shops_seen)
        shops_seen += 1
        pupil.presses("space")
        pupil.hears("Productos disponibles")
        pupil.hears(rf"{shop}\. Coloque en la cesta .* botón de continuar")
        bought = [product for product in shelf(pupil) if product in wanted]
        for product in reversed(bought):  # since the shelf was gone through downwards
            takes(pupil, product, int(wanted.pop(product)))
        if not bought:
            puts_back_what_is_not_wanted(pupil)
        if bought:
            pupil.presses("alt+c")
            price = pays(pupil)
            if not wanted:
                pupil.hears("Compra terminada.*")
                pupil.closes_by("Return")
            money -= price
            left = pupil.hears(rf"Dinero disponible: ({NUMBER}) ?€").group(1)
            assert round(value(left), 2) == money  # which is counted in single precision
        else:
            pupil.closes_by("alt+c")
            pupil.hears("Lista de la compra")
            line_of_the_list(pupil)
    pupil.presses("alt+v")
    pupil.hears("Vuelves a casa con tu compra.*")
    pupil.closes_by("Return")
    pupil.hears("Actividad terminada.*")
    pupil.presses("Escape")
    pupil.hears("NUMBRELA")
    pupil.hears("La compra")


def line_of_the_list(pupil):
    units, product = pupil.hears(r"\((X|\d+)\) (.*)").groups()
    return product, units


def goes_to_shop(pupil, number):
    """The shops stand in a ring behind the way home, and the Tab key goes round it."""
    pupil.goes_to("Volver a casa")
    shop = ""
    for _ in range(number + 1):
        shop = pupil.goes_to(".*").group()
    return shop


def shelf(pupil):
    """The names of the products, up to the last one, from which it goes back to the first."""
    pupil.presses("End")
    last = pupil.hears(".*").group()
    products = [last]
    pupil.presses("Home")
    product = pupil.hears(".*").group()
    while product != last:
        products.append(product)
        product = pupil.goes_to(".*", "Down").group()
    return products


def takes(pupil, product, units):
    if not pupil.has_focus_on(product):
        pupil.goes_to(re.escape(product), "Up")
    for unit in range(1, units + 1):
        pupil.presses("Return")
        pupil.hears(rf"Cesta de la compra: \({unit}\) {re.escape(product)} {NUMBER}")
        assert pupil.has_focus_on(product)  # and not in the basket


def puts_back_what_is_not_wanted(pupil):
    pupil.presses("Return")
    product = pupil.hears(rf"Cesta de la compra: \(1\) (.* {NUMBER})").group(1)
    pupil.goes_to("Cesta de la compra")
    pupil.hears(rf"\(1\) {re.escape(product)}")
    pupil.presses("Delete")
    pupil.hears(rf"Devuelto: {re.escape(product)}\. Cesta de la compra: vacía")


def pays(pupil):
    """Adds up, works out the change and leaves the shop; returns the price of it all."""
    pupil.hears("Resultado")
    prices = pupil.hears(rf"Sume los precios .* pulse continuar\. ({NUMBER}(?: más {NUMBER})*)").group(1)
    price = sum(value(text) for text in prices.split(" más "))
    pupil.writes_from_the_right(spanish(price))
    pupil.presses("alt+c")
    notes, paid = pupil.hears(rf"Has entregado .* te tienen que devolver\? ({NUMBER}) menos ({NUMBER})").groups()
    assert value(paid) == price, (paid, price)
    pupil.writes_from_the_right(spanish(value(notes) - price))
    pupil.presses("alt+c")
    pupil.hears("Salir")
    pupil.hears(r"Has comprado los siguientes productos:.*Pulsa el botón salir\.")
    pupil.closes_by("Return")
    return price
