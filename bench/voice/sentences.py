"""What is spoken in the films of make_films.py: sentences of our own, and a small grammar that makes more of them."""

TUNE = """
I left the keys on the table, next to the old radio.
Wait.
Nobody told me that the bridge was closed.
If you see my brother, tell him that dinner is at eight and that I won't wait.
That's not what I meant.
We walked along the river until the rain stopped, and then we walked back.
How many of them are still down there?
She never answered my letters.
The first train leaves at six, the second one never comes.
Come on, hurry up!
You can't just walk in here and take whatever you like.
It was a small house with a red door.
Yes, of course.
My grandfather built this boat with his own hands, forty years ago.
I don't believe a word of it.
There were seven chairs and only five guests.
Somebody has to stay with the children while the others look for water.
Stop the car.
He put the money under the mattress, where everybody looks first.
What time is it?
The doctor said that I should sleep more and worry less.
Far away a dog was barking.
Give me one good reason why I should help you now.
Look at me.
They painted the whole kitchen yellow without asking anyone.
We could try the back door.
Every winter the lake freezes, and every winter someone falls in.
Thank you for coming at such short notice.
Not today.
Perhaps the map is wrong, or perhaps we are holding it upside down.
""".strip().splitlines()

REPORT = """
Good evening, everybody.
The harbour was empty when the ship came in.
I think somebody has been sleeping in my bed, and I would like to know who it was.
No, thanks.
Could you turn the music down a little?
Under the stairs there is a box with all of her photographs.
We have no idea.
Tomorrow morning, before anyone wakes up, we will be over the mountains.
Who taught you to play like that?
The soup is getting cold.
When I was a boy, this whole street was nothing but gardens and apple trees.
Be careful with that glass.
He paid for both of them and left without a word.
Maybe.
Seventeen people signed the paper, and not one of them had read it.
You should have called me last night.
Outside it began to snow.
Please take your seats, the second act begins in three minutes.
I'm sorry, what did you say?
The judge asked for silence, but nobody in the room was listening.
Open the window.
My sister works at the airport, so she gets up at half past three.
Five more miles to go.
All the lights went out at once, and for a moment it was perfectly quiet.
Don't touch anything.
We used to meet here on Thursdays, after the market had closed.
How long have you been standing there?
It is too late to change the plan now.
Run!
Between you and me, the old man never owned a single horse.
""".strip().splitlines()

FOREIGN = {
    "es": """
Nadie me dijo que el puente estaba cerrado.
Espera un momento, por favor.
Mi abuelo construyó este barco con sus propias manos.
No me lo creo.
El primer tren sale a las seis y el segundo no llega nunca.
¿Qué hora es?
Caminamos junto al río hasta que dejó de llover.
Claro que sí.
Había siete sillas y solamente cinco invitados.
Deja el dinero debajo de la mesa y vete sin mirar atrás.
""".strip().splitlines(),
    "de": """
Niemand hat mir gesagt, dass die Brücke gesperrt ist.
Warte einen Augenblick.
Mein Großvater hat dieses Boot mit eigenen Händen gebaut.
Das glaube ich nicht.
Der erste Zug fährt um sechs, und der zweite kommt nie.
Wie spät ist es?
Wir gingen am Fluss entlang, bis der Regen aufhörte.
Ja, natürlich.
Es gab sieben Stühle und nur fünf Gäste.
Leg das Geld unter den Tisch und geh, ohne dich umzudrehen.
""".strip().splitlines(),
}

WHO = ["The teacher", "My neighbour", "Her uncle", "The captain", "Our driver", "An old friend", "The woman from the bakery",
       "One of the soldiers", "The youngest son", "A tall stranger", "The mayor", "Their cousin", "The night watchman"]
DID = ["found", "lost", "painted", "stole", "repaired", "sold", "carried away", "forgot about", "asked for", "looked after",
       "hid", "bought", "threw away", "noticed", "dropped"]
WHAT = ["the silver spoons", "a bicycle", "three letters", "the wrong suitcase", "an umbrella", "every single book",
        "the broken clock", "a bag of oranges", "our only lamp", "the garden chairs", "my father's hat", "two tickets",
        "a very small dog", "the last piece of cake", "their new piano"]
WHERE = ["", "", " behind the church", " at the station", " in the middle of the night", " near the river", " after the war",
         " without telling anyone", " on a cold morning in March", " just before the storm"]
AND = ["", "", "", ", and nobody knew why", ", or so they say", ", but it was too late", ", as usual"]


def sentence(rng, pool):
    """A sentence: from the pool, or by the grammar when the pool is used up; what was drawn leaves the pool."""
    if pool and rng.random() < 0.6:
        return pool.pop(rng.randrange(len(pool)))
    return f"{rng.choice(WHO)} {rng.choice(DID)} {rng.choice(WHAT)}{rng.choice(WHERE)}{rng.choice(AND)}."
